#pragma once

#include <memory>
#include <string>

#include "framework/pdm/KorPdmTransport.h"
#include "lumira/commands/Server.h"
#include "protocol/Result.h"

namespace desktop {

/// A server in this process, on a product file. What is saved is saved in the name of UserName().
class EmbeddedTransport : public KorPdmTransport {
 public:
  /// Fails as opening the store does: no such file, damaged, read-only, locked, of a newer version.
  static protocol::Result<std::unique_ptr<EmbeddedTransport>> Open(const std::string& file,
                                                                   lumira::Progress progress = {});

  std::string Run(const std::string& command, const std::string& request) override;
  std::string Address() const override;

  const std::string& File() const { return _file; }
  lumira::Store& Store() { return *_store; }
  lumira::Server& Server() { return _server; }

 private:
  EmbeddedTransport(std::string file, std::unique_ptr<lumira::Store> store, lumira::Progress progress);

  std::string _file;
  std::unique_ptr<lumira::Store> _store;
  lumira::Server _server;
};

}  // namespace desktop
