#include "framework/system/KorEventSubscriber.h"

#include <algorithm>
#include <vector>

/// Everything that one subscriber knows. It is shared so that a publication which is under way, and callbacks
/// that wait elsewhere, can tell that the subscriber has gone.
struct KorEventSubscriber::Registry {
  struct Callback {
    std::weak_ptr<Registry> subscriber;
    KorString event;
    Method method;
    KorCommandClientData data;
    bool removed = false;

    bool Waits() const {
      const auto owner = subscriber.lock();
      return !removed && owner && owner->alive;
    }
  };
  /// Where this subscriber has callbacks. The pointer only names the publisher, which may be gone.
  struct Publisher {
    KorEventSubscriber* address;
    std::weak_ptr<Registry> registry;
  };

  bool alive = true;
  std::vector<std::shared_ptr<Callback>> callbacks;
  std::vector<Publisher> publishers;

  void ForgetDead() {
    std::erase_if(callbacks, [](const auto& callback) { return !callback->Waits(); });
  }
  void Remove(const std::shared_ptr<Registry>& subscriber) {
    for (const auto& callback : callbacks)
      if (callback->subscriber.lock() == subscriber) callback->removed = true;
    ForgetDead();
  }
};

KorEventSubscriber::KorEventSubscriber() : _registry(std::make_shared<Registry>()) {}

KorEventSubscriber::KorEventSubscriber(const KorEventSubscriber&) : KorEventSubscriber() {}

KorEventSubscriber& KorEventSubscriber::operator=(const KorEventSubscriber&) { return *this; }

KorEventSubscriber::~KorEventSubscriber() {
  _registry->alive = false;
  // Publishers must not keep the callbacks of one who has gone: their code may go too, with its library.
  for (const Registry::Publisher& known : _registry->publishers)
    if (const auto registry = known.registry.lock()) registry->Remove(_registry);
  _registry->callbacks.clear();
}

void KorEventSubscriber::AddCallback(KorEventSubscriber* publisher, const char* event, Method method,
                                     KorCommandClientData data) {
  if (!publisher || !event || !method) return;
  Registry& waiting = *publisher->_registry;
  waiting.ForgetDead();
  waiting.callbacks.push_back(
      std::make_shared<Registry::Callback>(Registry::Callback{_registry, event, std::move(method), data}));
  std::erase_if(_registry->publishers, [](const auto& known) { return known.registry.expired(); });
  _registry->publishers.push_back({publisher, publisher->_registry});
}

void KorEventSubscriber::RemoveCallbacks(KorEventSubscriber* publisher) {
  for (const Registry::Publisher& known : _registry->publishers)
    if (known.address == publisher)
      if (const auto registry = known.registry.lock()) registry->Remove(_registry);
  std::erase_if(_registry->publishers, [&](const auto& known) { return known.address == publisher; });
}

void KorEventSubscriber::Publish(const char* event) {
  if (!event) return;
  const std::shared_ptr<Registry> registry = _registry;
  // The copy keeps each callback whole while it runs, whatever it removes or adds.
  const std::vector<std::shared_ptr<Registry::Callback>> waiting = registry->callbacks;
  for (const auto& callback : waiting) {
    if (!registry->alive) return;  // a callback destroyed the publisher
    if (callback->event == event && callback->Waits()) callback->method(this, event, callback->data);
  }
}

int KorEventSubscriber::CallbackCount(const char* event) const {
  return static_cast<int>(std::count_if(
      _registry->callbacks.begin(), _registry->callbacks.end(),
      [&](const auto& callback) { return callback->Waits() && (!event || callback->event == event); }));
}
