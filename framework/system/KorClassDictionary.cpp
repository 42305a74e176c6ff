#include "framework/system/KorClassDictionary.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

struct Entry {
  const KorFillDictionary* filler;
  KorString className;
  KorClassDictionary::Factory factory;
};

// Built by the first registration, so it outlives every registration, in whatever order libraries are loaded.
std::vector<Entry>& Entries() {
  static std::vector<Entry> entries;
  return entries;
}

KorClassDictionary::Observer& TheObserver() {
  static KorClassDictionary::Observer observer;
  return observer;
}

// Of several registrations of one name the latest counts; the earlier ones come back when it goes.
const Entry* FindEntry(const KorString& className) {
  const std::vector<Entry>& entries = Entries();
  const auto found = std::find_if(entries.rbegin(), entries.rend(),
                                  [&](const Entry& entry) { return entry.className == className; });
  return found == entries.rend() ? nullptr : &*found;
}

}  // namespace

void* KorClassDictionary::Create(const KorString& className) {
  const Entry* entry = FindEntry(className);
  if (!entry || !entry->factory) return nullptr;
  try {
    return entry->factory();
  } catch (...) {  // a factory of a loaded library must not take the host down
    return nullptr;
  }
}

bool KorClassDictionary::Knows(const KorString& className) { return FindEntry(className) != nullptr; }

void KorClassDictionary::SetObserver(Observer observer) { TheObserver() = std::move(observer); }

KorFillDictionary::KorFillDictionary(const char* className, KorClassDictionary::Factory factory)
    : _className(className ? className : "") {
  Entries().push_back({this, _className, factory});
  if (TheObserver()) TheObserver()(_className, true);
}

KorFillDictionary::~KorFillDictionary() {
  std::erase_if(Entries(), [this](const Entry& entry) { return entry.filler == this; });
  if (TheObserver()) TheObserver()(_className, false);
}
