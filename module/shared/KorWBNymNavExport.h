#pragma once

#include "framework/system/KorExport.h"

/// Marks what the module shows to the host; everything else stays hidden.
#if defined(KORVO_NYMNAVGUI_BUILDING)
#define ExportedByKorWBNymNavGUI KOR_SYMBOL_EXPORT
#else
#define ExportedByKorWBNymNavGUI KOR_SYMBOL_IMPORT
#endif
