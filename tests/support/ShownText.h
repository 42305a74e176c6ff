#pragma once

#include <string>

#include "framework/dialog/KorDlgObject.h"

/// What a window shows of one property of a widget, as a text that reads well in a failure:
/// "enabled", "checked", "line 2 of 3", the lines of a combo one below the other, ...
std::string ShownText(const KorDlgObject& widget, KorDlgProperty property);

/// Name of a property, such as "Sensitivity".
const char* PropertyName(KorDlgProperty property);

/// Name of a kind, such as "PushButton".
const char* KindName(KorDlgKind kind);

/// Dialog and path of a widget, with the occurrence behind a name that its parent uses again:
/// "KorWBNymMainPanel: Frame012.FrameStatus.FlagRedLabel[2]".
std::string FullName(const KorDlgObject& widget);
