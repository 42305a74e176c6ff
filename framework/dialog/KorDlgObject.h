#pragma once

#include <functional>
#include <memory>
#include <span>
#include <stdexcept>
#include <type_traits>
#include <vector>

#include "framework/dialog/KorDlgConstants.h"
#include "framework/system/KorCommand.h"
#include "framework/system/KorNotification.h"

class KorDlgBackend;
class KorDlgDialog;

/// Thrown by a look-up of a widget path that does not exist; the message lists the paths that do.
class KorDlgUnknownPath : public std::logic_error {
  using std::logic_error::logic_error;
};

/// A widget: its whole state, whatever toolkit shows it.
///
/// A widget owns its children. Sensitivity and visibility are a widget's own; a disabled or hidden parent
/// makes its children unreachable without changing theirs. Setters tell the backend of the dialog, if there
/// is one, what changed. Verbs (in the derived classes) are what a user can do; on a widget that is not
/// reachable they do nothing and report to the observer of unreachable verbs.
class KOR_FRAMEWORK_API KorDlgObject : public KorCommand {
 public:
  using Handler =
      std::function<void(KorCommand* sender, KorNotification* notification, KorCommandClientData data)>;

  ~KorDlgObject() override;

  virtual KorDlgKind Kind() const = 0;
  /// Which properties this kind has; a backend is told each of them when it attaches.
  virtual std::span<const KorDlgProperty> Properties() const;

  const KorString& Name() const { return _name; }
  unsigned Style() const { return _style; }
  KorDlgObject* Parent() const { return _parent; }
  KorDlgDialog* Dialog();
  const std::vector<std::unique_ptr<KorDlgObject>>& Children() const { return _children; }

  /// Creates a child at the end of the children. The pointer lives as long as this widget.
  template <class Widget>
  Widget* Add(const char* name, unsigned style = KorDlgStyle::kNone, KorDlgGrid grid = {}) {
    auto child = std::make_unique<Widget>(this, name, style);
    Widget* widget = child.get();
    Adopt(std::move(child), grid);
    return widget;
  }

  /// Names from below the dialog down to this widget, joined by dots. Empty for the dialog.
  KorString Path() const;
  /// The widget under a path relative to this one ("Frame012.SelectionEditor"). Of several with the same
  /// path the first, or the n-th with "[n]" behind a name. Throws KorDlgUnknownPath.
  KorDlgObject& Find(const KorString& path);
  template <class Widget>
  Widget& Find(const KorString& path) {
    KorDlgObject& found = Find(path);
    if (auto* widget = dynamic_cast<Widget*>(&found)) return *widget;
    throw KorDlgUnknownPath("The widget \"" + path + "\" is of another kind.");
  }

  /// The shown title: set by code, else the catalogue's, else empty.
  const KorUnicodeString& GetTitle() const { return _title; }
  void SetTitle(const KorUnicodeString& title);
  const KorUnicodeString& GetShortHelp() const { return _shortHelp; }
  void SetShortHelp(const KorUnicodeString& help);

  KorSensitivity GetSensitivity() const { return _sensitivity; }
  void SetSensitivity(KorSensitivity sensitivity);
  bool IsEnabled() const { return _sensitivity == KorSensitivity::Enabled; }
  KorVisibility GetVisibility() const { return _visibility; }
  void SetVisibility(KorVisibility visibility);
  bool IsShown() const { return _visibility == KorVisibility::Shown; }
  /// Whether a user could act on it: enabled and shown, and everything above it too, on the selected pages.
  bool IsReachable() const;

  const KorDlgGrid& GetGrid() const { return _grid; }
  bool IsAttached() const { return _attached; }
  void SetGrid(const KorDlgGrid& grid);
  /// Takes the widget out of the grid; it is shown again at the next SetGrid.
  void ResetAttachment();

  /// Marks the widget as holding something that cannot be used, with the reason; empty: no mark.
  void SetMarking(const KorUnicodeString& reason);
  const KorUnicodeString& GetMarking() const { return _marking; }

  /// Calls `handler` at each `event` of this widget, in the order of subscription. The caller sees to it that
  /// what the handler captures outlives this widget. A handler may subscribe further ones; it may not destroy
  /// the widget that sends.
  void Subscribe(KorEvent event, Handler handler, KorCommandClientData data = nullptr);
  template <class Target>
  void Subscribe(KorEvent event, Target* target,
                 void (Target::*method)(KorCommand*, KorNotification*, KorCommandClientData),
                 KorCommandClientData data = nullptr) {
    Subscribe(event,
              Handler([target, method](KorCommand* sender, KorNotification* what, KorCommandClientData with) {
                (target->*method)(sender, what, with);
              }),
              data);
  }
  int SubscriptionCount(KorEvent event) const;

  /// Verb: the keyboard focus comes or goes. Sends FocusIn or FocusOut.
  bool EnterFocus();
  bool LeaveFocus();

  /// Told of each verb on an unreachable widget; tests make it a failure. Null: nobody.
  using UnreachableObserver = std::function<void(const KorDlgObject& widget, const char* verb)>;
  static void SetUnreachableObserver(UnreachableObserver observer);

 protected:
  KorDlgObject(KorDlgObject* parent, const char* name, unsigned style);

  /// Sends a notification to the subscribers.
  void Notify(KorEvent event);
  /// Tells the backend, if one is attached.
  void Changed(KorDlgProperty property);
  /// Assigns and tells the backend when the value differs.
  template <class Value>
  void Assign(Value& member, const std::type_identity_t<Value>& value, KorDlgProperty property) {
    if (member == value) return;
    member = value;
    Changed(property);
  }
  /// Begins a verb: false, after telling the observer, when the widget cannot be reached.
  bool CanAct(const char* verb) const;
  void Report(const char* verb) const;

  /// Texts of this widget from the dialog's catalogue; called when it is created and when the language
  /// changes.
  virtual void LoadTexts();

  /// Whether this widget lets the user see that child; a tab container shows one page at a time.
  virtual bool BringsToFront(const KorDlgObject& child) const;

  virtual KorDlgBackend* Backend() const;
  /// Tells `backend` of this widget and all below it: created, then each property.
  void Replay(KorDlgBackend& backend);
  void NotifyDestroyed(KorDlgBackend& backend);

 private:
  friend class KorDlgDialog;
  struct Subscription {
    KorEvent event;
    Handler handler;
    KorCommandClientData data;
  };

  /// Only dialogs can be copied: the same own state, no children, no subscriptions and no backend.
  KorDlgObject(const KorDlgObject& other);
  KorDlgObject& operator=(const KorDlgObject& other);

  void Adopt(std::unique_ptr<KorDlgObject> child, const KorDlgGrid& grid);
  void LoadTextsBelow();

  KorString _name;
  unsigned _style;
  KorDlgObject* _parent;
  KorUnicodeString _title;
  KorUnicodeString _shortHelp;
  KorUnicodeString _marking;
  bool _titleSetByCode = false;
  bool _shortHelpSetByCode = false;
  KorSensitivity _sensitivity = KorSensitivity::Enabled;
  KorVisibility _visibility = KorVisibility::Shown;
  KorDlgGrid _grid;
  bool _attached = true;
  bool _announced = false;  ///< the backend has been told of this widget, and is told of its changes
  std::vector<Subscription> _subscriptions;
  std::vector<std::unique_ptr<KorDlgObject>> _children;
};
