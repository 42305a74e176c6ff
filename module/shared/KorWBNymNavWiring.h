#pragma once

#include <initializer_list>
#include <type_traits>

#include "framework/dialog/KorDlgObject.h"

/// One subscription of a panel: widget, notification, handler and the client data that the handler gets.
template <class Panel>
struct KorWBNymNavWire {
  KorDlgObject* widget;
  KorEvent event;
  void (Panel::*handler)(KorCommand*, KorNotification*, KorCommandClientData);
  KorCommandClientData data = nullptr;
};

/// Subscribes the handlers of `panel` in the order of the rows. The widgets belong to the panel.
template <class Panel>
void KorWBNymNavWireHandlers(Panel* panel,
                             std::type_identity_t<std::initializer_list<KorWBNymNavWire<Panel>>> rows) {
  for (const auto& row : rows) row.widget->Subscribe(row.event, panel, row.handler, row.data);
}
