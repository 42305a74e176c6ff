#include "framework/system/KorEnvironment.h"

#include <cstdlib>

const char* KorGetEnv(const char* name) { return name ? std::getenv(name) : nullptr; }

HRESULT KorGetEnvValue(const char* name, KorUnicodeString& value) {
  const char* found = KorGetEnv(name);
  if (!found) return E_FAIL;
  value = found;
  return S_OK;
}
