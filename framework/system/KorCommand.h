#pragma once

#include "framework/system/KorEventSubscriber.h"

/// Whatever sends and receives notifications: commands of the host and the widgets of its dialogs.
class KOR_FRAMEWORK_API KorCommand : public KorEventSubscriber {
 public:
  KorCommand() = default;
  explicit KorCommand(KorCommand* parent) : _parent(parent) {}

  KorCommand* GetParentCommand() const { return _parent; }

 private:
  KorCommand* _parent = nullptr;
};
