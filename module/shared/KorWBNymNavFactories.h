#pragma once

#include "module/shared/KorWBNymNavExport.h"

/// Factories of the panels that the host creates by class name. Each answers a new panel that is not laid out
/// yet, to be converted with static_cast to its class and destroyed by the host, or null when there is no
/// memory. Nothing is thrown.
extern "C" {
ExportedByKorWBNymNavGUI void* fctCreateKorWBNymNavFilterPanel();
ExportedByKorWBNymNavGUI void* fctCreateKorWBNymNavReportPanel();
}
