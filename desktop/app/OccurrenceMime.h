#pragma once

#include <QStringList>
#include <memory>
#include <vector>

#include "desktop/app/OccurrencePlace.h"

class QMimeData;

namespace desktop {

/// Occurrences on their way from the product tree, by a drag of the mouse.
std::unique_ptr<QMimeData> DragOccurrences(const std::vector<OccurrenceKey>& occurrences);
/// Empty when something else is dragged.
std::vector<OccurrenceKey> DraggedOccurrences(const QMimeData& data);
/// The name under which they travel.
QStringList OccurrenceMimeTypes();

}  // namespace desktop
