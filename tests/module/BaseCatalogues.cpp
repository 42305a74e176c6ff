#include "tests/module/BaseCatalogues.h"

#include "framework/dialog/KorDlgDialog.h"

KorString KorDlgDialog::GetResourceFilename(int index) const {
  return BaseCatalogues::AreNamed() ? "Base " + std::to_string(index) : KorString();
}
