#pragma once

/// While it lives, the base class of dialogs answers "Base 0", "Base 1", ... as the names of its catalogues,
/// so that a test sees with which index a dialog asks it. The framework's own dialog has none.
///
/// The test program defines the base's answer itself, and the loader takes that definition for the libraries,
/// too.
class BaseCatalogues {
 public:
  BaseCatalogues() { s_named = true; }
  ~BaseCatalogues() { s_named = false; }
  BaseCatalogues(const BaseCatalogues&) = delete;
  BaseCatalogues& operator=(const BaseCatalogues&) = delete;

  static bool AreNamed() { return s_named; }

 private:
  inline static bool s_named = false;
};
