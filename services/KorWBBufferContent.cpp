#include "services/KorWBBufferContent.h"

#include <algorithm>
#include <utility>

#include "protocol/Constants.h"
#include "services/KorWBLengths.h"

namespace {

std::optional<std::array<double, 3>> CgInMillimetres(const protocol::MassType& massType) {
  if (!massType.cg) return std::nullopt;
  std::array<double, 3> mm{};
  std::transform(massType.cg->begin(), massType.cg->end(), mm.begin(), KorMillimetresFromMetres);
  return mm;
}

}  // namespace

void KorWBAllDataBuffer::Content::Replace(protocol::PartData newData) {
  data = std::move(newData);
  storedDocumentId = data.documents.activeId;
  storedDocumentVersion = data.documents.activeVersion;
  cgMillimetres.clear();
  std::transform(data.massTypes.begin(), data.massTypes.end(), std::back_inserter(cgMillimetres),
                 CgInMillimetres);
}

const protocol::MassType* KorWBAllDataBuffer::Content::Find(const KorUnicodeString& massType) const {
  const auto found =
      std::find_if(data.massTypes.begin(), data.massTypes.end(),
                   [&](const protocol::MassType& listed) { return listed.name == massType.Utf8(); });
  return found == data.massTypes.end() ? nullptr : &*found;
}

protocol::MassType* KorWBAllDataBuffer::Content::Find(const KorUnicodeString& massType) {
  return const_cast<protocol::MassType*>(std::as_const(*this).Find(massType));
}

const std::optional<KorWBAllDataBuffer::Content::Coordinates>& KorWBAllDataBuffer::Content::CgOf(
    const protocol::MassType& massType) const {
  return cgMillimetres[IndexOf(massType)];
}

void KorWBAllDataBuffer::Content::SetCg(protocol::MassType& massType, const double* mm) {
  std::optional<Coordinates>& present = cgMillimetres[IndexOf(massType)];
  protocol::Vector metres{};
  for (std::size_t i = 0; i < metres.size(); ++i) {
    const bool unchanged = present && massType.cg && (*present)[i] == mm[i];
    metres[i] = unchanged ? (*massType.cg)[i] : KorMetresFromMillimetres(mm[i]);
  }
  massType.cg = metres;
  present = Coordinates{mm[0], mm[1], mm[2]};
}

void KorWBAllDataBuffer::Content::RemoveCg(protocol::MassType& massType) {
  massType.cg.reset();
  cgMillimetres[IndexOf(massType)].reset();
}

void KorWBAllDataBuffer::Content::SetComputed(const protocol::MassType& computed) {
  protocol::MassType* listed = Find(computed.name);
  if (!listed) {
    data.massTypes.insert(data.massTypes.begin(), computed);
    cgMillimetres.insert(cgMillimetres.begin(), CgInMillimetres(computed));
    return;
  }
  protocol::MassType values = computed;
  values.precisionType = listed->precisionType;
  values.precisionValueType = listed->precisionValueType;
  values.lowerPrecision = listed->lowerPrecision;
  values.upperPrecision = listed->upperPrecision;
  *listed = std::move(values);
  cgMillimetres[IndexOf(*listed)] = CgInMillimetres(*listed);
}

void KorWBAllDataBuffer::Content::SetSaved(const std::string& stateToken) {
  protocol::Documents& documents = data.documents;
  data.stateToken = stateToken;
  data.persisted = true;
  const bool automatic = documents.activeId == protocol::kNull;
  documents.usedSpecificRevisionBefore = documents.used && !automatic;
  if (!automatic) {
    storedDocumentId = documents.activeId;
    storedDocumentVersion = documents.activeVersion;
  }
  documents.activeId = storedDocumentId;
  documents.activeVersion = storedDocumentVersion;
}
