#include "lumira/app/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>

#include "lumira/commands/UserName.h"
#include "lumira/import/Guarded.h"
#include "protocol/Limits.h"

namespace lumira {
namespace {

using protocol::ErrorKind;
using protocol::Result;

constexpr char kFooter[] =
    "Exit codes: 0 done, 1 the program failed, 2 wrong command line, 3 the input was refused, "
    "4 the database or the disk refused.";

int CodeOf(ErrorKind kind) {
  if (kind == ErrorKind::Storage) return kStorage;
  return kind == ErrorKind::Internal ? kFailed : kRefused;
}

int Fail(const protocol::Error& error, const Console& console) {
  console.errors << "lumira: " << error.message << '\n';
  return CodeOf(error.kind);
}

// A full disk or a reader that went away shows only when the last of the text has left.
int Finish(int code, const Console& console) {
  if (code != kDone || console.out.flush()) return code;
  return Fail({ErrorKind::Storage, "the output cannot be written"}, console);
}

// The program's commands with their parameters; parsing fills the actions and remembers which one was named.
class Parser {
 public:
  explicit Parser(const Console& console) : _console(console) {
    _app.require_subcommand(1);
    _app.footer(kFooter);
    AddInit();
    AddImport();
    AddTree();
    AddCompute();
    AddCommand();
    AddHistory();
  }

  int Run(int argc, const char* const* argv) {
    try {
      _app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
      return _app.exit(error, _console.out, _console.errors) == 0 ? kDone : kUsage;
    }
    const Result<void> done = _chosen();
    return done ? kDone : Fail(done.Failure(), _console);
  }

 private:
  template <class Action>
  CLI::App* Add(const char* name, const char* description, Action& action) {
    CLI::App* command = _app.add_subcommand(name, description);
    command->add_option("FILE", action.file, "The database")->required();
    command->callback([this, &action] { _chosen = [this, &action] { return Do(action, _console); }; });
    return command;
  }

  void AddInit() { Add("init", "Makes a new, empty database.", _init); }

  void AddImport() {
    CLI::App* command = Add("import", "Reads a product from tables: all of it, or nothing.", _import);
    command->add_option(
        "--structure", _import.structure,
        "Structure table: parent, child, placement. Without it the mass table has a column \"parent\"");
    command->add_option("--mass", _import.mass, "Mass table: part, mass, centre of gravity, inertia")
        ->required();
    command->add_option("--filters", _import.filters,
                        "Filter table: configuration filters of the product, with their conditions");
    command->add_option("--documents", _import.documents,
                        "Document table: revisions of the documents of parts, with their mass data");
    command->add_option("--properties", _import.properties,
                        "Property table: extra properties of the product, with the values of parts");
    command->add_option("--product", _import.options.product,
                        "Name of the product; else that of its top part");
    command->add_flag_callback(
        "--dry-run", [this] { _import.options.mode = ImportMode::DryRun; },
        "Checks everything and writes nothing");
    command->add_flag_callback(
        "--replace", [this] { _import.options.existing = Existing::Replace; },
        "Takes the place of a product of the same name");
    command->add_flag_callback(
        "--leave-out-unknown", [this] { _import.options.unknownParts = UnknownParts::LeaveOut; },
        "Leaves out rows of the mass table whose part the structure does not have");
  }

  void AddTree() {
    CLI::App* command = Add("tree", "Prints products, or a part and what is below it.", _tree);
    command->add_option("PART", _tree.part, "The part to start at; else the root of every product");
    command
        ->add_option("--depth", _tree.depth, "How many levels to print below the part or the root; 0: none")
        ->check(CLI::Range(0, 1'000'000));
  }

  void AddCompute() {
    CLI::App* command =
        Add("compute", "Computes the mass properties of a part and prints them in SI units.", _compute);
    command->add_option("PART", _compute.part, "The part")->required();
    CLI::Option* name = command->add_option("--filter", _compute.filterName,
                                            "Name of a configuration filter: computes what it leaves");
    command
        ->add_option("--user-filter", _compute.userFilter,
                     "Chosen instances: 1|COUNT, and for each |INSTANCE|PART|VERSION|DEPTH|PATH...")
        ->excludes(name);
  }

  void AddCommand() {
    CLI::App* command = Add("command", "Runs one server command and prints the reply.", _command);
    command->add_option("NAME", _command.name, "Name of the command, such as LumGetProducts")->required();
    command->add_option("TEXT", _command.request, "The request; \"-\": it is read from standard input");
    _command.user = UserOfEnvironment();
    command
        ->add_option("--user", _command.user,
                     "Who runs it, for the history of what is saved; else the user of the environment")
        ->check([](const std::string& name) {
          const auto problem = FindUserNameProblem(name);
          return problem ? "the name " + *problem : std::string();
        });
  }

  void AddHistory() {
    CLI::App* command =
        Add("history", "Prints who has saved a part, when, and what changed; the latest first.", _history);
    command->add_option("PART", _history.part, "The part")->required();
    command->add_option("--limit", _history.limit, "How many saves to print at most")
        ->check(CLI::Range(1, protocol::kMaxHistoryEntries));
  }

  const Console& _console;
  CLI::App _app{"Keeps products with their mass properties, and computes them.", "lumira"};
  InitAction _init;
  ImportAction _import;
  TreeAction _tree;
  ComputeAction _compute;
  CommandAction _command;
  HistoryAction _history;
  std::function<Result<void>()> _chosen;
};

}  // namespace

int RunCommandLine(int argc, const char* const* argv, const Console& console) {
  const Result<int> code =
      Guarded([&]() -> Result<int> { return Finish(Parser(console).Run(argc, argv), console); });
  return code ? code.Value() : Fail(code.Failure(), console);
}

}  // namespace lumira
