#include "module/filter_panel/KorWBNymNavFilterRow.h"

#include "services/KorWBServices.h"

namespace {

/// Takes one field after the other; what is missing or no number makes all that follows fail.
class Fields {
 public:
  explicit Fields(const KorUnicodeString& text) : _fields(KorWBServices::StringTokenizer(text, "|")) {}

  KorUnicodeString Text() {
    _good = _good && _next <= _fields.Size();
    return _good ? _fields[_next++] : KorUnicodeString();
  }

  /// A number of fields or rows; there cannot be more of them than fields are left.
  int Count() {
    const KorUnicodeString text = Text();
    int count = 0;
    _good = _good && text.ConvertToNum(&count) && count >= 0 && count <= Left();
    KorUnicodeString again;
    again.BuildFromNum(count);
    _good = _good && text == again;
    return _good ? count : 0;
  }

  bool AreGood() const { return _good; }
  int Left() const { return _fields.Size() - _next + 1; }

 private:
  KorListValKorUnicodeString _fields;
  int _next = 1;
  bool _good = true;
};

KorWBNymNavFilterRow ReadRow(Fields& fields) {
  KorWBNymNavFilterRow row;
  row.instanceId = fields.Text();
  row.partId = fields.Text();
  row.partVersion = fields.Text();
  row.depth = fields.Count();
  for (std::int32_t i = 0; i < row.depth; ++i) row.path += (i == 0 ? "" : "|") + fields.Text();
  return row;
}

}  // namespace

std::optional<std::vector<KorWBNymNavFilterRow>> KorWBNymNavReadFilterRows(const KorUnicodeString& text) {
  Fields fields(text);
  fields.Text();  // the kind; the list is the user filter's in any case
  std::vector<KorWBNymNavFilterRow> rows;
  for (int left = fields.Count(); left > 0 && fields.AreGood(); --left) rows.push_back(ReadRow(fields));
  if (!fields.AreGood() || fields.Left() > 0) return std::nullopt;
  return rows;
}
