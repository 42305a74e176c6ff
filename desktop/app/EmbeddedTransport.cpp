#include "desktop/app/EmbeddedTransport.h"

#include <filesystem>

#include "desktop/app/Texts.h"
#include "desktop/app/UserName.h"
#include "desktop/toolkit/QtText.h"
#include "lumira/store/OpenSqliteStore.h"

namespace desktop {

protocol::Result<std::unique_ptr<EmbeddedTransport>> EmbeddedTransport::Open(const std::string& file,
                                                                             lumira::Progress progress) {
  auto store = lumira::OpenSqliteStore(file);
  if (!store) return store.Failure();
  return std::unique_ptr<EmbeddedTransport>(
      new EmbeddedTransport(file, std::move(store).Value(), std::move(progress)));
}

EmbeddedTransport::EmbeddedTransport(std::string file, std::unique_ptr<lumira::Store> store,
                                     lumira::Progress progress)
    : _file(std::move(file)), _store(std::move(store)), _server(*_store, std::move(progress), UserName()) {}

std::string EmbeddedTransport::Run(const std::string& command, const std::string& request) {
  return _server.Run(command, request);
}

std::string EmbeddedTransport::Address() const {
  return Text("Address.Embedded", {ToQt(std::filesystem::path(_file).filename().string())}).toStdString();
}

}  // namespace desktop
