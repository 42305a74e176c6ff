// Korvo, the desktop program.
#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <iostream>

#include "desktop/app/Folders.h"
#include "desktop/app/HeadlessRun.h"
#include "desktop/app/Icons.h"
#include "desktop/app/MainWindow.h"
#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorMsgCatalog.h"

namespace {

/// Exit codes besides those of the event loop.
constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

struct Options {
  QString headlessFolder;  ///< empty: with a display
  QString product;         ///< empty: the last one, or the sample
};

bool WantsHeadless(int argc, char** argv) {
  for (int i = 1; i < argc; ++i)
    if (QString(argv[i]).startsWith("--headless")) return true;
  return false;
}

Options ReadCommandLine(const QApplication& application) {
  QCommandLineParser parser;
  parser.setApplicationDescription(
      "Korvo Weight & Balance: mass, centre of gravity and inertia of products.\n"
      "Exit codes: 0 done, 1 failed (the reason is on standard error), 2 wrong usage.");
  parser.addHelpOption();
  parser.addVersionOption();
  const QCommandLineOption headless(
      "headless", "Open the sample, compute it, leave pictures and values in <folder>; needs no display.", "folder");
  parser.addOption(headless);
  parser.addPositionalArgument("product", "The product file to open; without one the last opened, else the sample.", "[product]");
  parser.process(application);
  if (parser.positionalArguments().size() > 1) {
    std::cerr << "korvo: only one product can be open; --help tells more\n";
    std::exit(kWrongUsage);
  }
  return {parser.value(headless), parser.positionalArguments().value(0)};
}

/// Says so when the texts are missing; the program would show keys in their place.
bool FindCatalogues() {
  const QString folder = desktop::Folders::Catalogues();
  KorMsgCatalog::SetFolder(folder.toStdString());
  if (!folder.isEmpty()) return true;
  std::cerr << "korvo: the folder \"catalogues\" with the program's texts is missing beside the program and above it;"
               " KORVO_CATALOGUES can name it\n";
  return false;
}

int RunHeadless(const QString& folder) {
  desktop::Theme::Apply(desktop::ThemeChoice::Light);
  const auto done = desktop::HeadlessRun(folder).Run();
  if (done) return 0;
  std::cerr << "korvo: " << done.Failure().message << "\n";
  return kFailed;
}

void OpenAtStart(desktop::MainWindow& window, const desktop::Settings& settings, const QString& product) {
  if (!product.isEmpty()) {
    window.OpenProduct(product);
    return;
  }
  const QStringList recent = settings.RecentProducts();
  if (recent.isEmpty() || !QFileInfo::exists(recent.front()) || !window.OpenProduct(recent.front())) window.OpenSample();
}

int RunDesktop(const QString& product) {
  desktop::Settings settings;
  desktop::Theme::Apply(settings.Theme());
  KorMsgCatalog::SetLanguage(settings.Language().toStdString());
  settings.ApplyUnits();
  desktop::QtBackend backend;
  KorApplicationFrame::SetBackend(&backend);
  desktop::MainWindow window(settings, backend);
  window.show();
  OpenAtStart(window, settings, product);
  const int code = QApplication::exec();
  KorApplicationFrame::SetBackend(nullptr);
  return code;
}

}  // namespace

int main(int argc, char** argv) {
  if (WantsHeadless(argc, argv) && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setOrganizationName("korvo");
  QApplication::setApplicationName("korvo");
  QApplication::setApplicationDisplayName("Korvo Weight & Balance");
  QApplication::setApplicationVersion(KORVO_VERSION);
  QApplication::setWindowIcon(desktop::icons::Application());
  const Options options = ReadCommandLine(application);
  if (!FindCatalogues()) return kFailed;
  return options.headlessFolder.isEmpty() ? RunDesktop(options.product) : RunHeadless(options.headlessFolder);
}
