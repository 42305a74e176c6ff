#include "framework/dialog/KorDlgObject.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "framework/dialog/KorDlgBackend.h"
#include "framework/dialog/KorDlgDialog.h"

namespace {

KorDlgObject::UnreachableObserver& Observer() {
  static KorDlgObject::UnreachableObserver observer;
  return observer;
}

/// One element of a path: a widget name and which of the widgets with that name.
struct PathElement {
  std::string_view name;
  int occurrence = 1;
};

PathElement ParseElement(std::string_view text) {
  const std::size_t open = text.rfind('[');
  if (open == std::string_view::npos || text.back() != ']') return {text};
  int occurrence = 0;
  const char* last = text.data() + text.size() - 1;
  const auto [end, error] = std::from_chars(text.data() + open + 1, last, occurrence);
  if (error != std::errc() || end != last || occurrence < 1) return {text};
  return {text.substr(0, open), occurrence};
}

void CollectPaths(const KorDlgObject& widget, const std::string& prefix, std::string& list) {
  for (const auto& child : widget.Children()) {
    const std::string path = prefix.empty() ? child->Name() : prefix + "." + child->Name();
    list += "\n  " + path;
    CollectPaths(*child, path, list);
  }
}

/// Finds the widget below `widget` whose path is `path`. Names may hold dots, so that each child whose name
/// opens the path is tried.
KorDlgObject* Locate(const KorDlgObject& widget, std::string_view path) {
  std::vector<std::pair<std::string_view, int>> met;
  for (const auto& child : widget.Children()) {
    const std::string& name = child->Name();
    if (path.substr(0, name.size()) != name) continue;
    const int occurrence = 1 + static_cast<int>(std::count_if(met.begin(), met.end(), [&](const auto& seen) {
                             return seen.first == name;
                           }));
    met.emplace_back(name, occurrence);
    std::size_t end = path.find('.', name.size());
    if (end == std::string_view::npos) end = path.size();
    const PathElement element = ParseElement(path.substr(0, end));
    if (element.name != name || element.occurrence > occurrence) continue;
    const bool indexed = element.name.size() != end;
    if (indexed && element.occurrence != occurrence) continue;
    if (end == path.size()) return child.get();
    if (KorDlgObject* found = Locate(*child, path.substr(end + 1))) return found;
  }
  return nullptr;
}

}  // namespace

KorDlgObject::KorDlgObject(KorDlgObject* parent, const char* name, unsigned style)
    : KorCommand(parent), _name(name), _style(style), _parent(parent) {}

KorDlgObject::KorDlgObject(const KorDlgObject& other)
    : KorCommand(other._parent),
      _name(other._name),
      _style(other._style),
      _parent(other._parent),
      _title(other._title),
      _shortHelp(other._shortHelp),
      _marking(other._marking),
      _titleSetByCode(other._titleSetByCode),
      _shortHelpSetByCode(other._shortHelpSetByCode),
      _sensitivity(other._sensitivity),
      _visibility(other._visibility),
      _grid(other._grid),
      _attached(other._attached) {}

KorDlgObject& KorDlgObject::operator=(const KorDlgObject& other) {
  _name = other._name;
  _style = other._style;
  SetTitle(other._title);
  SetShortHelp(other._shortHelp);
  // A text of the original's that code did not set is none that code set here.
  _titleSetByCode = other._titleSetByCode;
  _shortHelpSetByCode = other._shortHelpSetByCode;
  SetMarking(other._marking);
  SetSensitivity(other._sensitivity);
  SetVisibility(other._visibility);
  return *this;
}

KorDlgObject::~KorDlgObject() = default;

std::span<const KorDlgProperty> KorDlgObject::Properties() const {
  static constexpr std::array kCommon{KorDlgProperty::Title,       KorDlgProperty::Help,
                                      KorDlgProperty::Sensitivity, KorDlgProperty::Visibility,
                                      KorDlgProperty::Grid,        KorDlgProperty::Marking};
  return kCommon;
}

KorDlgDialog* KorDlgObject::Dialog() {
  KorDlgObject* top = this;
  while (top->_parent && top->Kind() != KorDlgKind::Dialog) top = top->_parent;
  return dynamic_cast<KorDlgDialog*>(top);
}

void KorDlgObject::Adopt(std::unique_ptr<KorDlgObject> child, const KorDlgGrid& grid) {
  child->_grid = grid;
  child->LoadTexts();
  _children.push_back(std::move(child));
  if (KorDlgBackend* backend = Backend()) _children.back()->Replay(*backend);
}

KorString KorDlgObject::Path() const {
  if (!_parent || Kind() == KorDlgKind::Dialog) return {};
  const KorString above = _parent->Path();
  return above.empty() ? _name : above + "." + _name;
}

KorDlgObject& KorDlgObject::Find(const KorString& path) {
  if (KorDlgObject* found = Locate(*this, path)) return *found;
  std::string known;
  CollectPaths(*this, "", known);
  throw KorDlgUnknownPath("\"" + _name + "\" has no widget \"" + path + "\". It has:" + known);
}

void KorDlgObject::SetTitle(const KorUnicodeString& title) {
  _titleSetByCode = true;
  Assign(_title, title, KorDlgProperty::Title);
}

void KorDlgObject::SetShortHelp(const KorUnicodeString& help) {
  _shortHelpSetByCode = true;
  Assign(_shortHelp, help, KorDlgProperty::Help);
}

void KorDlgObject::LoadTexts() {
  const KorDlgDialog* dialog = Dialog();
  if (!dialog) return;
  const KorString path = Path();
  const KorString key = path.empty() ? KorString() : path + ".";
  if (!_titleSetByCode) Assign(_title, dialog->CatalogueText(key + "Title"), KorDlgProperty::Title);
  if (!_shortHelpSetByCode)
    Assign(_shortHelp, dialog->CatalogueText(key + "ShortHelp"), KorDlgProperty::Help);
}

void KorDlgObject::LoadTextsBelow() {
  LoadTexts();
  for (const auto& child : _children) child->LoadTextsBelow();
}

void KorDlgObject::SetSensitivity(KorSensitivity sensitivity) {
  Assign(_sensitivity, sensitivity, KorDlgProperty::Sensitivity);
}

void KorDlgObject::SetVisibility(KorVisibility visibility) {
  Assign(_visibility, visibility, KorDlgProperty::Visibility);
}

bool KorDlgObject::IsReachable() const {
  if (!IsEnabled() || !IsShown()) return false;
  if (Kind() == KorDlgKind::Dialog || !_parent) return true;
  return _parent->BringsToFront(*this) && _parent->IsReachable();
}

void KorDlgObject::SetGrid(const KorDlgGrid& grid) {
  if (_attached && _grid == grid) return;
  _attached = true;
  _grid = grid;
  Changed(KorDlgProperty::Grid);
}

void KorDlgObject::ResetAttachment() { Assign(_attached, false, KorDlgProperty::Grid); }

void KorDlgObject::SetMarking(const KorUnicodeString& reason) {
  Assign(_marking, reason, KorDlgProperty::Marking);
}

void KorDlgObject::Subscribe(KorEvent event, Handler handler, KorCommandClientData data) {
  _subscriptions.push_back({event, std::move(handler), data});
}

int KorDlgObject::SubscriptionCount(KorEvent event) const {
  return static_cast<int>(std::count_if(_subscriptions.begin(), _subscriptions.end(),
                                        [event](const Subscription& one) { return one.event == event; }));
}

void KorDlgObject::Notify(KorEvent event) {
  // By index and with a copy of the handler: a handler may subscribe further ones.
  for (std::size_t i = 0; i < _subscriptions.size(); ++i) {
    if (_subscriptions[i].event != event) continue;
    const Handler handler = _subscriptions[i].handler;
    KorNotification notification{event};
    handler(this, &notification, _subscriptions[i].data);
  }
}

bool KorDlgObject::EnterFocus() {
  if (!CanAct("EnterFocus")) return false;
  Notify(KorEvent::FocusIn);
  return true;
}

bool KorDlgObject::LeaveFocus() {
  if (!CanAct("LeaveFocus")) return false;
  Notify(KorEvent::FocusOut);
  return true;
}

void KorDlgObject::SetUnreachableObserver(UnreachableObserver observer) { Observer() = std::move(observer); }

bool KorDlgObject::CanAct(const char* verb) const {
  if (IsReachable()) return true;
  Report(verb);
  return false;
}

void KorDlgObject::Report(const char* verb) const {
  if (Observer()) Observer()(*this, verb);
}

bool KorDlgObject::BringsToFront(const KorDlgObject&) const { return true; }

KorDlgBackend* KorDlgObject::Backend() const { return _parent ? _parent->Backend() : nullptr; }

void KorDlgObject::Changed(KorDlgProperty property) {
  KorDlgBackend* backend = _announced ? Backend() : nullptr;
  if (backend) backend->Changed(*this, property);
}

void KorDlgObject::Replay(KorDlgBackend& backend) {
  backend.Created(*this);
  _announced = true;
  for (const KorDlgProperty property : Properties()) backend.Changed(*this, property);
  for (const auto& child : _children) child->Replay(backend);
}

void KorDlgObject::NotifyDestroyed(KorDlgBackend& backend) {
  for (auto child = _children.rbegin(); child != _children.rend(); ++child)
    (*child)->NotifyDestroyed(backend);
  _announced = false;
  backend.Destroyed(*this);
}
