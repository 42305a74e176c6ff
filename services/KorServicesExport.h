#pragma once

#include "framework/system/KorExport.h"

#if defined(KORVO_SERVICES_BUILDING)
#define KOR_SERVICES_API KOR_SYMBOL_EXPORT
#else
#define KOR_SERVICES_API KOR_SYMBOL_IMPORT
#endif
