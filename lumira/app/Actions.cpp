#include "lumira/app/Actions.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "lumira/app/ValueList.h"
#include "lumira/commands/Server.h"
#include "lumira/model/Counted.h"
#include "lumira/store/OpenSqliteStore.h"
#include "protocol/Codec.h"
#include "protocol/Constants.h"
#include "protocol/Limits.h"
#include "protocol/Numbers.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Result;

// One line on the errors that is written over by the next.
Progress ProgressOn(const Console& console) {
  if (!console.showProgress) return {};
  return [&errors = console.errors](std::string_view what, std::size_t done, std::size_t total) {
    errors << "\r\033[K" << what;
    if (total > 0) errors << ' ' << 100 * done / total << " %";
    errors << std::flush;
  };
}

void ClearProgress(const Console& console) {
  if (console.showProgress) console.errors << "\r\033[K" << std::flush;
}

// A database with a server on it.
class OpenServer {
 public:
  static Result<OpenServer> On(const std::string& file, const Console& console,
                               const std::string& user = UserOfEnvironment()) {
    auto store = OpenSqliteStore(file);
    if (!store) return store.Failure();
    return OpenServer(std::move(store).Value(), console, user);
  }

  Store& Data() { return *_store; }

  Result<std::string> Execute(std::string_view command, const std::string& request) {
    return _server->Execute(command, request);
  }

  // Runs a command and reads its reply.
  template <class Reply>
  Result<Reply> Ask(std::string_view command, const std::string& request,
                    Result<Reply> (*read)(std::string_view)) {
    const auto reply = Execute(command, request);
    if (!reply) return reply.Failure();
    return read(reply.Value());
  }

 private:
  OpenServer(std::unique_ptr<Store> store, const Console& console, const std::string& user)
      : _store(std::move(store)), _server(new Server(*_store, ProgressOn(console), user)) {}

  std::unique_ptr<Store> _store;
  std::unique_ptr<Server> _server;
};

// ", 3 of something" where there are any.
std::string More(std::size_t count, Noun noun) { return count > 0 ? ", " + Counted(count, noun) : ""; }

void WriteReport(const ImportReport& report, ImportMode mode, const Console& console) {
  for (const std::string& text : report.warnings) console.errors << "warning: " << text << '\n';
  for (const std::string& text : report.leftOut) console.errors << "left out: " << text << '\n';
  console.out << (mode == ImportMode::DryRun ? "Would import" : "Imported") << " product \"" << report.product
              << "\": " << Counted(report.parts, {"part", "parts"}) << ", "
              << Counted(report.instances, {"instance", "instances"}) << ", "
              << Counted(report.massTypes, {"mass type", "mass types"})
              << More(report.filters, {"configuration filter", "configuration filters"})
              << More(report.revisions, {"document revision", "document revisions"})
              << More(report.properties, {"extra property", "extra properties"}) << "; "
              << Counted(report.warnings.size(), {"warning", "warnings"}) << ", "
              << Counted(report.leftOut.size(), {"thing", "things"}) << " left out.\n";
}

Result<ImportTables> ReadTables(const ImportAction& action) {
  ImportTables tables;
  auto mass = ReadTableFile(action.mass, action.options.limits);
  if (!mass) return mass.Failure();
  tables.mass = std::move(mass).Value();
  const std::pair<const std::string&, std::optional<TableSource>&> more[] = {
      {action.structure, tables.structure},
      {action.filters, tables.filters},
      {action.documents, tables.documents},
      {action.properties, tables.properties}};
  for (const auto& [path, table] : more) {
    if (path.empty()) continue;
    auto read = ReadTableFile(path, action.options.limits);
    if (!read) return read.Failure();
    table = std::move(read).Value();
  }
  return tables;
}

// Prints a tree line by line, and stops when nobody would read on.
class TreePrinter {
 public:
  TreePrinter(OpenServer& server, int depth, const Console& console)
      : _server(server), _depth(depth), _console(console) {}

  // The node and what is below it, down to the depth. `indent` is that of the node.
  Result<void> Print(const protocol::TreeNode& node, int indent) { return Print(node, indent, _depth); }

  void Finish() {
    if (_lines > kMostLines)
      _console.errors << "lumira: only the first " << kMostLines
                      << " lines are shown; give a part or --depth to see less\n";
  }

  static constexpr int kMostLines = 10'000;

 private:
  Result<void> Print(const protocol::TreeNode& node, int indent, int depth) {
    if (_lines++ >= kMostLines) return {};
    PrintLine(node, indent);
    if (!node.hasChildren || depth <= 0) return {};
    return PrintChildren(node.partId, indent + 1, depth - 1);
  }

  Result<void> PrintChildren(const std::string& part, int indent, int depth) {
    for (protocol::ChildrenRequest request{part, 0, 1'000};;) {
      const auto page = _server.Ask(protocol::kCommandChildren, protocol::WriteChildrenRequest(request),
                                    protocol::ReadTreeNodes);
      if (!page) return page.Failure();
      for (const protocol::TreeNode& node : page.Value().nodes)
        if (const auto printed = Print(node, indent, depth); !printed) return printed;
      request.first += static_cast<int>(page.Value().nodes.size());
      if (request.first >= page.Value().total || page.Value().nodes.empty() || _lines > kMostLines) return {};
    }
  }

  void PrintLine(const protocol::TreeNode& node, int indent) {
    _console.out << std::string(2 * static_cast<std::size_t>(indent), ' ') << node.partId;
    if (!node.name.empty() && node.name != node.partId) _console.out << " \"" << node.name << '"';
    if (!node.revision.empty()) _console.out << " revision " << node.revision;
    if (node.quantity != 1) _console.out << " x" << node.quantity;
    if (node.mass) _console.out << "  " << protocol::FormatNumber(*node.mass) << " kg";
    if (node.computedStatus == protocol::MassTypeStatus::OutOfDate) _console.out << " (out of date)";
    _console.out << '\n';
  }

  OpenServer& _server;
  int _depth;
  const Console& _console;
  int _lines = 0;
};

// What went wrong with some of many things, told when all are done. The kind is that of the first.
class Failures {
 public:
  void Add(const Error& error) {
    if (!_all)
      _all = error;
    else
      _all->message += "\n" + error.message;
  }

  Result<void> All() const { return _all ? Result<void>(*_all) : Result<void>(); }

 private:
  std::optional<Error> _all;
};

Result<void> PrintProducts(OpenServer& server, TreePrinter& printer, const Console& console) {
  const auto products = server.Ask(protocol::kCommandProducts, {}, protocol::ReadProductList);
  if (!products) return products.Failure();
  Failures failures;
  for (const std::string& problem : products.Value().problems) failures.Add({ErrorKind::Storage, problem});
  for (const protocol::ProductEntry& entry : products.Value().products) {
    console.out << "Product \"" << entry.product << "\"\n";
    if (entry.root.partId.empty()) continue;  // it is among the problems
    if (const auto printed = printer.Print(entry.root, 1); !printed) failures.Add(printed.Failure());
  }
  return failures.All();
}

// The part as a line of a tree that begins with it. The search also finds what only contains the identifier;
// when that is more than a reply holds, the line may be without the name.
Result<protocol::TreeNode> AskNode(OpenServer& server, const std::string& part) {
  const auto product = server.Data().ProductOfPart(part);
  if (!product) return product.Failure();
  const protocol::SearchRequest request{product.Value(), part, protocol::kMaxPageEntries};
  const auto found =
      server.Ask(protocol::kCommandSearch, protocol::WriteSearchRequest(request), protocol::ReadSearchReply);
  if (!found) return found.Failure();
  protocol::TreeNode node{.partId = part, .hasChildren = true};
  for (const protocol::Occurrence& hit : found.Value().hits)
    if (hit.node.partId == part) node = hit.node;
  node.quantity = 1;  // of the instance that was found, not of the part
  return node;
}

Result<void> PrintPart(OpenServer& server, TreePrinter& printer, const std::string& part) {
  const auto node = AskNode(server, part);
  if (!node) return node.Failure();
  return printer.Print(node.Value(), 0);
}

// "No Filter" without either. An empty text is no filter that could be meant, and is refused by the server.
std::string FilterOf(const ComputeAction& action) {
  if (action.userFilter) return *action.userFilter;
  return action.filterName ? "0|" + *action.filterName : std::string(protocol::kNoFilter);
}

Result<protocol::PartData> AskPartData(OpenServer& server, const std::string& part,
                                       const std::string& filter) {
  protocol::PartDataRequest request;
  request.partId = part;
  request.filter = filter;
  return server.Ask(protocol::kCommandPartData, protocol::WritePartDataRequest(request),
                    protocol::ReadPartData);
}

Placement ToPlacement(const std::vector<double>& numbers) {
  Placement placement;
  std::copy_n(numbers.begin(), 9, placement.rotation.m.begin());
  placement.translation = {numbers[9], numbers[10], numbers[11]};
  return placement;
}

// What the reply has.
ComputedValues ValuesOf(const protocol::PartData& data, const protocol::ComputeReply& reply) {
  const protocol::MassType& computed = reply.computed;
  ComputedValues values{.part = data.partId,
                        .properties = {computed.mass, {}, {}},
                        .lowerDeviation = computed.lowerDeviation,
                        .upperDeviation = computed.upperDeviation,
                        .deviations = {},
                        .placement = data.placement.empty() ? Placement{} : ToPlacement(data.placement)};
  const auto vector = [](const auto& n) { return Vec3{n[0], n[1], n[2]}; };
  const auto tensor = [](const auto& n) { return InertiaTensor{n[0], n[1], n[2], n[3], n[4], n[5]}; };
  if (computed.cg) values.properties.cg = vector(*computed.cg);
  if (computed.inertia) values.properties.inertia = tensor(*computed.inertia);
  if (reply.firstMoment) values.firstMoment = vector(*reply.firstMoment);
  if (reply.inertiaAtOrigin) values.inertiaAtOrigin = tensor(*reply.inertiaAtOrigin);
  return values;
}

// The reply leaves out the standard deviations of centre and inertia; the stored result has them. Under a
// filter nothing is stored.
Result<ComputedValues> CollectValues(OpenServer& server, const protocol::PartData& data,
                                     const protocol::ComputeReply& reply) {
  ComputedValues values = ValuesOf(data, reply);
  const auto filter = protocol::ReadFilter(data.filter);
  if (filter && !filter.Value().LetsAllPass()) return values;
  const auto results = server.Data().LoadResults(data.configurationHandler);
  if (!results) return results.Failure();
  const auto result = std::find_if(results.Value().begin(), results.Value().end(),
                                   [&](const StoredResult& r) { return r.partId == data.partId; });
  if (result == results.Value().end())
    return Error{ErrorKind::Internal, "the result of \"" + data.partId + "\" was not stored"};
  values.deviations = result->computed.deviations;
  return values;
}

void PrintFrame(const protocol::PartData& data, const Console& console) {
  console.out << "# SI units. cg and inertia_ref are in the frame of "
              << (data.placement.empty() ? "the part itself, which stands in several places"
                                         : "the product's top part")
              << "; inertia_cg is in the part's axes.\n";
  if (data.filter != protocol::kNoFilter) console.out << "# Under the filter " << data.filter << '\n';
}

Result<void> PrintWarnings(OpenServer& server, const Console& console) {
  const auto pending = server.Ask(protocol::kCommandPendingWarnings, {}, protocol::ReadPendingWarnings);
  if (!pending) return pending.Failure();
  for (const protocol::Warning& warning : pending.Value().warnings)
    console.errors << (warning.severity == protocol::Severity::Information ? "note: " : "warning: ")
                   << warning.text << '\n';
  return {};
}

// What users have typed is shown without what a terminal would obey, each field on one line:
// "  massTypes[Weighed].mass: 2 -> 3" below a line with number, time and user.
void PrintEntry(const protocol::HistoryEntry& entry, const Console& console) {
  using protocol::Printable;
  console.out << entry.number << "  " << Printable(entry.time) << "  " << Printable(entry.user) << '\n';
  for (const protocol::FieldChange& change : entry.changes)
    console.out << "  " << Printable(change.field) << ": " << Printable(change.before.value_or("none"))
                << " -> " << Printable(change.after.value_or("none")) << '\n';
  const auto more = entry.changeCount - std::ssize(entry.changes);
  if (more > 0) console.out << "  and " << more << (more == 1 ? " more field\n" : " more fields\n");
}

// The whole input without the line end that a shell leaves behind it. More than any text may have is not
// read.
Result<std::string> ReadInput(std::istream& in) {
  std::string text;
  std::vector<char> block(std::size_t{1} << 16);
  while (in && text.size() <= protocol::kMaxTextBytes + 1) {
    in.read(block.data(), std::ssize(block));
    text.append(block.data(), static_cast<std::size_t>(in.gcount()));
  }
  if (in.bad()) return Error{ErrorKind::Storage, "the standard input cannot be read"};
  if (text.ends_with('\n')) text.pop_back();
  return text;
}

// An argument has an end long before a text has.
Result<std::string> RequestOf(const CommandAction& action, const Console& console) {
  return action.request == "-" ? ReadInput(console.in) : action.request;
}

}  // namespace

Result<void> Do(const InitAction& action, const Console& console) {
  const auto store = CreateSqliteStore(action.file);
  if (!store) return store.Failure();
  console.out << "Made the database \"" << action.file << "\".\n";
  return {};
}

Result<void> Do(const ImportAction& action, const Console& console) {
  const auto tables = ReadTables(action);
  if (!tables) return tables.Failure();
  auto store = OpenSqliteStore(action.file);
  if (!store) return store.Failure();
  ImportOptions options = action.options;
  options.progress = ProgressOn(console);
  const auto report = ImportProduct(*store.Value(), tables.Value(), options);
  ClearProgress(console);
  if (!report) return report.Failure();
  WriteReport(report.Value(), options.mode, console);
  return {};
}

Result<void> Do(const TreeAction& action, const Console& console) {
  auto server = OpenServer::On(action.file, console);
  if (!server) return server.Failure();
  TreePrinter printer(server.Value(), action.depth, console);
  const auto printed = action.part.empty() ? PrintProducts(server.Value(), printer, console)
                                           : PrintPart(server.Value(), printer, action.part);
  ClearProgress(console);
  printer.Finish();
  return printed;
}

Result<void> Do(const ComputeAction& action, const Console& console) {
  auto server = OpenServer::On(action.file, console);
  if (!server) return server.Failure();
  protocol::ComputeRequest request{.hasInstance = true, .partId = action.part, .options = {}};
  request.options.filter = FilterOf(action);
  const auto reply = server.Value().Ask(protocol::kCommandComputePart, protocol::WriteComputeRequest(request),
                                        protocol::ReadComputeReply);
  ClearProgress(console);
  if (!reply) return reply.Failure();
  const auto data = AskPartData(server.Value(), action.part, request.options.filter);
  if (!data) return data.Failure();
  const auto values = CollectValues(server.Value(), data.Value(), reply.Value());
  if (!values) return values.Failure();
  PrintFrame(data.Value(), console);
  WriteValues(console.out, values.Value());
  return PrintWarnings(server.Value(), console);
}

Result<void> Do(const CommandAction& action, const Console& console) {
  const auto request = RequestOf(action, console);
  if (!request) return request.Failure();
  auto server = OpenServer::On(action.file, console, action.user);
  if (!server) return server.Failure();
  const auto reply = server.Value().Execute(action.name, request.Value());
  ClearProgress(console);
  if (!reply) return reply.Failure();
  console.out << reply.Value() << '\n';
  return {};
}

Result<void> Do(const HistoryAction& action, const Console& console) {
  auto server = OpenServer::On(action.file, console);
  if (!server) return server.Failure();
  protocol::HistoryRequest request{.partId = action.part, .before = 0, .limit = action.limit};
  while (request.limit > 0) {
    const auto page = server.Value().Ask(protocol::kCommandHistory, protocol::WriteHistoryRequest(request),
                                         protocol::ReadHistory);
    if (!page) return page.Failure();
    const auto& entries = page.Value().entries;
    for (const protocol::HistoryEntry& entry : entries) PrintEntry(entry, console);
    if (entries.empty() || entries.back().number == 1) return {};
    request.before = entries.back().number;
    request.limit -= static_cast<int>(entries.size());
  }
  return {};
}

}  // namespace lumira
