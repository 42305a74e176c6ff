#pragma once

/// What a notification tells. The backend and the verbs of a widget raise them, handlers subscribe to them.
enum class KorEvent {
  PushActivate,  ///< push button pressed
  RadioModify,   ///< radio button became checked or unchecked
  CheckModify,   ///< check button became checked or unchecked
  ComboSelect,   ///< another line of a combo selected
  EditorModify,  ///< text of an editor changed
  FocusIn,       ///< the keyboard focus came
  FocusOut,      ///< the keyboard focus went
  SpinnerUp,
  SpinnerDown,
  SpinnerModify,  ///< the shown text of a spinner changed
  ListSelect,     ///< selection of a multi-column list changed
  TabSelect,      ///< another page selected
  DialogOK,
  DialogCancel,
  WindowClose,
};

/// One notification on its way from the widget to a handler.
struct KorNotification {
  KorEvent event;
};
