// Korvo, the desktop program.
#include <QApplication>
#include <QCommandLineParser>
#include <QMessageBox>
#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <iostream>
#include <optional>
#include <string>

#include "desktop/app/Folders.h"
#include "desktop/app/HeadlessRun.h"
#include "desktop/app/Icons.h"
#include "desktop/app/MainWindow.h"
#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorMsgCatalog.h"

namespace {

/// Exit codes besides those of the event loop.
constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;  ///< also: no display

struct Options {
  std::optional<QString> headlessFolder;  ///< none: with a display
  QString product;                        ///< empty: the last one, or the sample
};

bool HasArgument(int argc, char** argv, std::initializer_list<const char*> starts) {
  return std::any_of(argv + 1, argv + argc, [starts](const QString& one) {
    return std::any_of(starts.begin(), starts.end(),
                       [&one](const char* start) { return one.startsWith(start); });
  });
}

/// Whether Qt can open windows here; it would end the program without a word on how to go on.
bool HasDisplay() {
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
  return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
#else
  return true;
#endif
}

/// Chooses the platform that needs no display where none is wanted or there is none; false when one may be
/// wanted and there is none.
bool ChoosePlatform(int argc, char** argv) {
  if (!qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") || HasArgument(argc, argv, {"-platform", "--platform"}))
    return true;
  const bool needsNone = HasArgument(argc, argv, {"--headless", "--help", "-h", "-v", "--version"});
  const bool hasDisplay = HasDisplay();
  if (needsNone || !hasDisplay) qputenv("QT_QPA_PLATFORM", "offscreen");
  return needsNone || hasDisplay;
}

constexpr const char* kNoDisplay = "\"korvo --headless <folder>\" does the main job without one\n";

/// Qt ends the program with advice on its installation when the display that the environment names cannot be
/// opened. This says what is the matter instead; it stands until windows can be made.
void SayThatTheDisplayIsDead(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type != QtFatalMsg) return;
  std::cerr << "korvo: the display cannot be opened; " << kNoDisplay << "Qt says: " << message.toStdString()
            << "\n";
  std::_Exit(kWrongUsage);
}

/// What the platform without a display cannot do is no news.
void PassOverWhatOffscreenCannotDo(QtMsgType type, const QMessageLogContext& context,
                                   const QString& message) {
  if (message.startsWith("This plugin does not support")) return;
  std::cerr << qFormatLogMessage(type, context, message).toStdString() << "\n";
  if (type == QtFatalMsg) std::abort();
}

[[noreturn]] void RefuseCommandLine(const std::string& why) {
  std::cerr << "korvo: " << why << "; --help tells more\n";
  std::exit(kWrongUsage);
}

Options ReadCommandLine(const QApplication& application) {
  QCommandLineParser parser;
  parser.setApplicationDescription(
      "Korvo Weight & Balance: mass, centre of gravity and inertia of products.\n"
      "Exit codes: 0 done, 1 failed (the reason is on standard error), 2 wrong usage or no display.");
  parser.addHelpOption();
  parser.addVersionOption();
  const QCommandLineOption headless(
      "headless", "Open the sample, compute it, leave pictures and values in <folder>; needs no display.",
      "folder");
  parser.addOption(headless);
  parser.addPositionalArgument(
      "product", "The product file to open; without one the last opened, else the sample.", "[product]");
  // Read by itself first: process() would end the program with another exit code.
  if (!parser.parse(application.arguments())) RefuseCommandLine(parser.errorText().toStdString());
  parser.process(application);
  if (parser.positionalArguments().size() > 1) RefuseCommandLine("only one product can be opened");
  if (!parser.isSet(headless)) return {std::nullopt, parser.positionalArguments().value(0)};
  if (parser.value(headless).isEmpty()) RefuseCommandLine("--headless needs the name of a folder");
  return {parser.value(headless), parser.positionalArguments().value(0)};
}

enum class Tell { OnStandardError, InABoxToo };

/// Says so when the texts are missing; the program would show keys in their place.
bool FindCatalogues(Tell tell) {
  const QString folder = desktop::Folders::Catalogues();
  KorMsgCatalog::SetFolder(folder.toStdString());
  if (!folder.isEmpty()) return true;
  const QString message = desktop::Folders::WhyNoCatalogues();
  std::cerr << "korvo: " << message.toStdString() << "\n";
  if (tell == Tell::InABoxToo) QMessageBox::critical(nullptr, "Korvo Weight & Balance", message);
  return false;
}

int RunHeadless(const QString& folder) {
  desktop::Theme::Apply(desktop::ThemeChoice::Light);
  desktop::HeadlessRun run(folder);
  const auto done = run.Run();
  for (const KorDlgMessage& message : run.Messages())
    std::cerr << message.title << ": " << message.text << "\n";
  if (done) return 0;
  std::cerr << "korvo: " << done.Failure().message << "\n";
  return kFailed;
}

int RunDesktop(const QString& product) {
  desktop::Settings settings;
  desktop::Theme::Apply(settings.Theme());
  settings.ApplyLanguage();
  settings.ApplyUnits();
  desktop::QtBackend backend;
  KorApplicationFrame::SetBackend(&backend);
  desktop::MainWindow window(settings, backend);
  window.show();
  window.OpenAtStart(product);
  window.TellStartProblems();
  const int code = QApplication::exec();
  KorApplicationFrame::SetBackend(nullptr);
  return code;
}

}  // namespace

int main(int argc, char** argv) {
  const bool canShow = ChoosePlatform(argc, argv);
  qInstallMessageHandler(SayThatTheDisplayIsDead);
  QApplication application(argc, argv);
  const bool offscreen = QApplication::platformName() == "offscreen";
  qInstallMessageHandler(offscreen ? PassOverWhatOffscreenCannotDo : nullptr);
  QApplication::setOrganizationName("korvo");
  QApplication::setApplicationName("korvo");
  QApplication::setApplicationDisplayName("Korvo Weight & Balance");
  QApplication::setApplicationVersion(KORVO_VERSION);
  QApplication::setWindowIcon(desktop::icons::Application());
  const Options options = ReadCommandLine(application);
  if (!canShow) {
    std::cerr << "korvo: there is no display; " << kNoDisplay;
    return kWrongUsage;
  }
  const bool headless = options.headlessFolder.has_value();
  if (!FindCatalogues(headless ? Tell::OnStandardError : Tell::InABoxToo)) return kFailed;
  return headless ? RunHeadless(*options.headlessFolder) : RunDesktop(options.product);
}
