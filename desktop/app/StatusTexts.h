#pragma once

#include <QColor>
#include <QString>

#include "protocol/PartData.h"

namespace desktop {

/// How computed values stand, as the user reads it.
QString StatusText(protocol::MassTypeStatus status);
QColor StatusColour(protocol::MassTypeStatus status);

}  // namespace desktop
