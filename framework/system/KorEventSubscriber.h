#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "framework/system/KorExport.h"
#include "framework/system/KorUnicodeString.h"

/// Untyped data that a callback was registered with; integers travel through `KorClientData(int)`.
using KorCommandClientData = void*;
inline KorCommandClientData KorClientData(int number) {
  return reinterpret_cast<KorCommandClientData>(static_cast<std::intptr_t>(number));
}
inline int KorClientNumber(KorCommandClientData data) {
  return static_cast<int>(reinterpret_cast<std::intptr_t>(data));
}

/// Publishes named events and receives those of others.
///
/// The publisher keeps the callbacks; either side may be destroyed first. A callback may remove
/// callbacks, its own included, and may publish again.
class KOR_FRAMEWORK_API KorEventSubscriber {
 public:
  /// What a callback gets: the publisher, the event's name and the client data of the registration.
  using Method =
      std::function<void(KorEventSubscriber* publisher, const char* event, KorCommandClientData data)>;

  KorEventSubscriber();
  /// A copy publishes to nobody and is subscribed to nothing.
  KorEventSubscriber(const KorEventSubscriber&);
  KorEventSubscriber& operator=(const KorEventSubscriber&);
  virtual ~KorEventSubscriber();

  /// Calls `method` of this subscriber whenever `publisher` publishes `event`.
  void AddCallback(KorEventSubscriber* publisher, const char* event, Method method,
                   KorCommandClientData data = nullptr);
  template <class Target>
  void AddCallback(KorEventSubscriber* publisher, const char* event,
                   void (Target::*method)(KorEventSubscriber*, const char*, KorCommandClientData),
                   KorCommandClientData data = nullptr) {
    auto* target = static_cast<Target*>(this);
    AddCallback(publisher, event,
                Method([target, method](KorEventSubscriber* from, const char* name,
                                        KorCommandClientData with) { (target->*method)(from, name, with); }),
                data);
  }
  /// Forgets every callback that this subscriber holds on `publisher`.
  void RemoveCallbacks(KorEventSubscriber* publisher);

  /// Calls the callbacks of `event` in the order of their registration.
  void Publish(const char* event);

  /// How many callbacks of others (or of its own) wait on this publisher, for `event` or for all when null.
  int CallbackCount(const char* event = nullptr) const;

 private:
  struct Registry;
  std::shared_ptr<Registry> _registry;
};
