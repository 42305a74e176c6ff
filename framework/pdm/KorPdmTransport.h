#pragma once

#include <string>

#include "framework/system/KorExport.h"

/// How the PDM client reaches a server. Texts are UTF-8. A transport answers every failure of its own with an
/// error reply of the server's form, so that the reply alone tells the outcome.
class KOR_FRAMEWORK_API KorPdmTransport {
 public:
  virtual ~KorPdmTransport();
  /// Runs a command and waits for its reply.
  virtual std::string Run(const std::string& command, const std::string& request) = 0;
  /// Where the server is, for the status bar, such as "embedded, nacelle.lumira".
  virtual std::string Address() const = 0;
};
