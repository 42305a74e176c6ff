#include "desktop/app/StatusTexts.h"

#include <array>

#include "desktop/app/Texts.h"
#include "desktop/toolkit/Colours.h"

namespace desktop {
namespace {

struct StatusRow {
  const char* key;
  QColor colour;
};

/// By the number of the status.
const std::array<StatusRow, 3> kRows = {{{"Status.NotComputed", QColor(0x9a, 0xa2, 0xaa)},
                                         {"Status.UpToDate", colours::kLampGreen},
                                         {"Status.OutOfDate", colours::kLampAmber}}};

const StatusRow& RowOf(protocol::MassTypeStatus status) { return kRows[static_cast<std::size_t>(status)]; }

}  // namespace

QString StatusText(protocol::MassTypeStatus status) { return Text(RowOf(status).key); }
QColor StatusColour(protocol::MassTypeStatus status) { return RowOf(status).colour; }

}  // namespace desktop
