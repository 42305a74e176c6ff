#pragma once

#include <optional>
#include <utility>

#include "module/shared/KorWBNymNavMessages.h"

/// How a panel talks to the server: a request text out, a reply text back, and what the server says to the
/// user. Keeps nothing between commands.
class KorWBNymNavServerChannel {
 public:
  /// Messages use the catalogue of the sending panel.
  explicit KorWBNymNavServerChannel(KorWBNymNavMessages messages) : _messages(std::move(messages)) {}

  /// Runs a command and waits. The reply alone tells the outcome; it is empty when no server was reached.
  static KorUnicodeString Send(const KorUnicodeString& command, const KorUnicodeString& request);

  /// The error text of an error reply; nothing when the reply is none.
  static std::optional<KorUnicodeString> ErrorOf(const KorUnicodeString& reply);
  /// Shows the error of an error reply over `parent`; false when the reply is none.
  bool ShowError(const KorUnicodeString& reply, KorDlgDialog* parent) const;

  /// Fetches and shows what the server has to say about the last command; shows nothing when that is nothing.
  void ShowWarnings() const;

 private:
  const char* TitleOfWarnings(const KorUnicodeString& warnings) const;

  KorWBNymNavMessages _messages;
};
