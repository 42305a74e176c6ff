#pragma once

#include <QIcon>

/// Icons drawn in code, in the colours of the current palette.
namespace desktop::icons {

/// The mark of a centre of gravity: a disc in quarters.
QIcon Application();
QIcon Assembly();
QIcon Part();
QIcon PartPanel();
QIcon OpenProduct();
QIcon Import();
QIcon Units();
QIcon Find();
QIcon Filter();
QIcon Lamp(const QColor& colour);

}  // namespace desktop::icons
