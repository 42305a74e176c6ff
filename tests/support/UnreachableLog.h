#pragma once

#include <string>
#include <vector>

#include "framework/dialog/KorDlgObject.h"

/// While it lives, records each verb on a widget that no user could reach, as "Press on MassEditor".
class UnreachableLog {
 public:
  UnreachableLog() {
    KorDlgObject::SetUnreachableObserver([this](const KorDlgObject& widget, const char* verb) {
      _verbs.push_back(verb + std::string(" on ") + widget.Name());
    });
  }
  ~UnreachableLog() { KorDlgObject::SetUnreachableObserver(nullptr); }
  UnreachableLog(const UnreachableLog&) = delete;
  UnreachableLog& operator=(const UnreachableLog&) = delete;

  const std::vector<std::string>& Verbs() const { return _verbs; }

 private:
  std::vector<std::string> _verbs;
};
