#pragma once

#include <cstddef>

#include "framework/system/KorEventSubscriber.h"
#include "framework/system/KorObjectAllocator.h"

struct KorNotification;

/// Whatever sends and receives notifications: commands of the host and the widgets of its dialogs.
class KOR_FRAMEWORK_API KorCommand : public KorEventSubscriber {
 public:
  KorCommand() = default;
  explicit KorCommand(KorCommand* parent) : _parent(parent) {}

  /// Whom this command tells of what concerns the host; it must outlive its use here.
  KorCommand* GetParentCommand() const { return _parent; }
  void SetParentCommand(KorCommand* parent) { _parent = parent; }

  /// A command that names this one as its parent sent a notification on.
  virtual void AnalyseNotification(KorCommand* /*from*/, KorNotification* /*notification*/) {}

  /// The command gives up what it is doing. Returns 0.
  virtual int Cancel(KorCommand* /*from*/, KorNotification* /*notification*/) { return 0; }

  // Commands and dialogs come from the host's allocator.
  static void* operator new(std::size_t size) { return KorObjectAllocator::Allocate(size); }
  static void operator delete(void* memory) { KorObjectAllocator::Free(memory); }

 protected:
  /// Sends a notification on to the parent command, if there is one.
  void SendNotification(KorNotification* notification) {
    if (_parent) _parent->AnalyseNotification(this, notification);
  }

 private:
  KorCommand* _parent = nullptr;
};
