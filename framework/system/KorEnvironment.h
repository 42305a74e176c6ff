#pragma once

#include "framework/system/KorStatus.h"
#include "framework/system/KorUnicodeString.h"

/// The value of an environment variable, null when it is not set.
KOR_FRAMEWORK_API const char* KorGetEnv(const char* name);

/// Fills `value`; S_OK, or E_FAIL with `value` left alone when the variable is not set.
KOR_FRAMEWORK_API HRESULT KorGetEnvValue(const char* name, KorUnicodeString& value);
