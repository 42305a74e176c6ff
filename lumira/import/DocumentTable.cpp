#include "lumira/import/DocumentTable.h"

#include <algorithm>
#include <string>
#include <unordered_map>

#include "lumira/import/MassTypeColumns.h"
#include "lumira/import/MassTypeRow.h"
#include "lumira/import/PartCells.h"
#include "lumira/import/TableColumns.h"
#include "lumira/model/CheckInTime.h"
#include "lumira/model/Identifier.h"
#include "lumira/store/SizeRules.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using mass_type_columns::Density;
using mass_type_columns::MassType;
using mass_type_columns::MaterialName;
using mass_type_columns::PartId;
using protocol::Quoted;

enum Column : std::size_t {
  Document = mass_type_columns::ColumnCount,
  Mode,
  Revision,
  Time,
  User,
  CheckOutUser,
  Attached,
  Chosen,
};

constexpr auto kColumns = mass_type_columns::WithColumns(std::array{
    ColumnRule{"document"},
    ColumnRule{"mode"},
    ColumnRule{"revision"},
    ColumnRule{"check in time"},
    ColumnRule{"check in user"},
    ColumnRule{"check out user"},
    ColumnRule{"attached", Quantity::Flag},
    ColumnRule{"chosen", Quantity::Flag},
});

constexpr std::string_view kModes[] = {"most recent", "attached"};
constexpr std::string_view kRevision = "revision";

std::string Names(const std::vector<MassTypeData>& types) {
  std::string names;
  for (const MassTypeData& type : types) names += (names.empty() ? "" : ", ") + type.name;
  return names;
}

// Without a word about it, the first mass type of a revision counts. The list of revisions tells the names of
// the mass types and the mass that counts.
void Complete(protocol::DocumentRevision& listed, RevisionData& data) {
  if (data.activeMassType == kComputedMassType && !data.massTypes.empty())
    data.activeMassType = data.massTypes.front().name;
  listed.massTypes = Names(data.massTypes);
  for (const MassTypeData& type : data.massTypes)
    if (type.name == data.activeMassType) listed.mass = type.properties.mass.value_or(0);
}

class DocumentReading {
 public:
  DocumentReading(const CsvTable& table, ImportLog& log) : _columns(table, kColumns, log), _log(log) {}

  DocumentRows Run() {
    CheckSignColumn(_columns, _log);
    _columns.AddFound(_result.usedColumns);
    if (_columns.HasRequired()) _columns.EachRow({}, {}, [this](std::size_t row) { ReadRow(row); });
    for (DocumentOfPart& document : _result.documents) Finish(document);
    return std::move(_result);
  }

 private:
  void ReadRow(std::size_t row) {
    const auto id = _columns.Identifier(row, PartId);
    // The other cells of a row without a part are read all the same, for what is wrong with them.
    DocumentOfPart nobody{{{}}, {}, {}, {}};
    if (!id) return ReadCells(row, nobody);
    const auto [known, isNew] = _indices.emplace(*id, _result.documents.size());
    if (isNew) {
      const Place place = _columns.PlaceOf(row, PartId);
      _result.documents.push_back({{*id}, place, place, {}});
    }
    ReadCells(row, _result.documents[known->second]);
  }

  void ReadCells(std::size_t row, DocumentOfPart& document) {
    ReadDocument(row, document);
    if (_columns.Text(row, Revision).empty()) return RefuseWithoutRevision(row);
    const auto revision = _columns.Identifier(row, Revision);
    RevisionData unread{.revision = {}};
    protocol::DocumentRevision unlisted;
    std::size_t uncounted = 0;
    if (!revision) return ReadRevision(row, document, unlisted, unread, uncounted);
    const std::size_t index = IndexOf(document.content, *revision);
    document.massTypeBytes.resize(document.content.revisions.size());
    ReadRevision(row, document, document.content.details.documents.revisions[index],
                 document.content.revisions[index], document.massTypeBytes[index]);
  }

  void ReadDocument(std::size_t row, DocumentOfPart& document) {
    PartDetails& details = document.content.details;
    details.documents.used = true;
    if (!_columns.Text(row, Document).empty()) {
      if (details.documentId.empty()) document.document = _columns.PlaceOf(row, Document);
      SetText(_columns, row, Document, "part", details.documentId);
      _columns.Identifier(row, Document);
    }
    if (!_columns.Text(row, Mode).empty())
      details.documents.autoMode = static_cast<int>(_columns.Choice(row, Mode, kModes));
  }

  // Everything but the part, the document and its mode belongs to a revision.
  void RefuseWithoutRevision(std::size_t row) {
    const auto refuse = [&](std::size_t first, std::size_t count) {
      if (_columns.IsAnyGiven(row, first, count))
        _columns.Error(row, _columns.FirstGiven(row, first, count),
                       "there is no revision that this could belong to");
    };
    refuse(MassType, mass_type_columns::ColumnCount - MassType);
    refuse(Time, Chosen + 1 - Time);
  }

  static std::size_t IndexOf(PartContent& content, const std::string& revision) {
    const auto found = std::ranges::find(content.revisions, revision, &RevisionData::revision);
    const auto index = static_cast<std::size_t>(found - content.revisions.begin());
    if (found == content.revisions.end()) {
      content.revisions.push_back({revision});
      content.details.documents.revisions.emplace_back().revision = revision;
    }
    return index;
  }

  void ReadRevision(std::size_t row, DocumentOfPart& document, protocol::DocumentRevision& listed,
                    RevisionData& data, std::size_t& massTypeBytes) {
    SetText(_columns, row, Time, kRevision, listed.checkInTime);
    if (const std::string_view time = _columns.Text(row, Time); !time.empty() && !IsCheckInTime(time))
      _columns.Error(row, Time, NoCheckInTime(Quoted(time)));
    SetText(_columns, row, User, kRevision, listed.checkInUser);
    std::string checkedOutBy = listed.checkOutUser.value_or("");
    SetText(_columns, row, CheckOutUser, kRevision, checkedOutBy);
    if (!checkedOutBy.empty()) listed.checkOutUser = checkedOutBy;
    SetText(_columns, row, MaterialName, kRevision, data.material);
    SetAmount(_columns, row, Density, "a density", data.density);
    ReadMarks(row, document.content.details.documents, data.revision);
    const std::string& part = document.content.partId;
    ReadMassTypeRow(_columns, row,
                    {part, "revision " + Quoted(data.revision) + " of part " + Quoted(part), data.massTypes,
                     data.activeMassType, data.precisions, massTypeBytes},
                    _log);
  }

  void ReadMarks(std::size_t row, protocol::Documents& documents, const std::string& revision) {
    if (_columns.Flag(row, Attached)) Mark(row, Attached, "attached", revision, documents.attachedVersion);
    if (!_columns.Flag(row, Chosen)) return;
    Mark(row, Chosen, "chosen", revision, documents.activeVersion);
    documents.usedSpecificRevisionBefore = true;
  }

  void Mark(std::size_t row, Column column, const char* what, const std::string& revision,
            std::string& member) {
    if (!member.empty() && member != revision)
      _columns.Error(row, column,
                     "revision " + Quoted(member) + " is " + what + " already; one of a document can be");
    member = revision;
  }

  void Finish(DocumentOfPart& document) {
    PartContent& content = document.content;
    protocol::Documents& documents = content.details.documents;
    for (std::size_t i = 0; i < content.revisions.size(); ++i)
      Complete(documents.revisions[i], content.revisions[i]);
    if (const auto problem = FindSizeProblem(documents.revisions))
      _log.Error(document.document, "part " + Quoted(content.partId) + ": " + *problem);
    const std::string& id = content.details.documentId;
    if (id.empty() && !content.revisions.empty())
      _log.Error(document.part, "part " + Quoted(content.partId) + " has revisions, but no document");
    if (id.empty()) return;
    if (!_documents.insert(id).second)
      _log.Error(document.document, "document " + Quoted(id) + " belongs to another part already");
    if (content.revisions.empty())
      _log.Warning(document.document,
                   "document " + Quoted(id) + " has no revisions, so that it cannot be found");
    else if (documents.autoMode == 1 && documents.attachedVersion.empty())
      _log.Error(document.document, "document " + Quoted(id) + " has no revision that is attached");
  }

  TableColumns _columns;
  ImportLog& _log;
  DocumentRows _result;
  std::unordered_map<std::string, std::size_t> _indices;  ///< of parts by identifier
  std::set<std::string> _documents;                       ///< identifiers
};

}  // namespace

DocumentRows ReadDocumentTable(const CsvTable& table, ImportLog& log) {
  return DocumentReading(table, log).Run();
}

}  // namespace lumira
