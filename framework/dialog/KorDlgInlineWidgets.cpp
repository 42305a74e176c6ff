// Widgets that stand in their headers whole. On Windows a library exports only what it compiles, so one of its
// source files must see them.

#include "framework/dialog/KorDlgFrame.h"
#include "framework/dialog/KorDlgLabel.h"
