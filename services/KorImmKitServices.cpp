#include "services/KorImmKitServices.h"

#include <optional>
#include <string_view>

#include "framework/pdm/KorPdmClient.h"
#include "protocol/Codec.h"
#include "protocol/Constants.h"

namespace {

// The reply read, or nothing when the server cannot be asked or did not answer in that form.
template <class Reply>
std::optional<Reply> Ask(std::string_view command, const std::string& request,
                         protocol::Result<Reply> (*read)(std::string_view)) {
  VARIANT input, output;
  KorUnicodeString text;
  if (Failed(BuildVariant(KorUnicodeString(request), input)) || Failed(BuildVariant("", output)) ||
      Failed(RunServerCode(command, input, output)) || Failed(ConvertVariant(output, text)))
    return std::nullopt;
  auto reply = read(text.Utf8());
  return reply ? std::optional(std::move(reply).Value()) : std::nullopt;
}

std::vector<std::string> Texts(const KorListValKorUnicodeString& list) {
  std::vector<std::string> texts;
  for (const KorUnicodeString& text : list) texts.push_back(text.Utf8());
  return texts;
}

}  // namespace

HRESULT KorImmKitServices::GetCurrentRootIdentifiers(KorListValKorUnicodeString& rootIds,
                                                     KorListValKorUnicodeString& prcIds,
                                                     KorUnicodeString& rootText) {
  rootIds.RemoveAll();
  prcIds.RemoveAll();
  rootText = {};
  const auto root = Ask(protocol::kCommandCurrentRoot, "", protocol::ReadCurrentRoot);
  if (!root || root->roots.empty()) return E_FAIL;
  for (const protocol::RootEntry& entry : root->roots) {
    rootIds.Append(entry.rootPart);
    prcIds.Append(entry.product);
  }
  rootText = root->text;
  return S_OK;
}

HRESULT KorImmKitServices::GetPRCConfigFilter(const KorListValKorUnicodeString& rootIds,
                                              const KorListValKorUnicodeString& prcIds,
                                              KorListValKorUnicodeString& filterIds,
                                              KorListValKorUnicodeString& filterNames) {
  filterIds.RemoveAll();
  filterNames.RemoveAll();
  const auto filters =
      Ask(protocol::kCommandFilters, protocol::WriteFiltersRequest({Texts(rootIds), Texts(prcIds)}),
          protocol::ReadFilterList);
  if (!filters) return E_FAIL;
  for (const protocol::FilterEntry& filter : filters->filters) {
    filterIds.Append(filter.id);
    filterNames.Append(filter.name);
  }
  return S_OK;
}

HRESULT KorImmKitServices::GetPRCConfigHandler(const KorUnicodeString& prcId, KorUnicodeString& handler) {
  handler = {};
  const auto answer = Ask(protocol::kCommandHandler, protocol::WriteHandlerRequest({prcId.Utf8()}),
                          protocol::ReadConfigurationHandler);
  if (!answer) return E_FAIL;
  if (!answer->name) return S_FALSE;
  handler = *answer->name;
  return S_OK;
}
