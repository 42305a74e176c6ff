#pragma once

#include "lumira/app/Actions.h"

namespace lumira {

/// What the program answers to its caller.
enum ExitCode : int {
  kDone = 0,
  kFailed = 1,   ///< a mistake of the program itself
  kUsage = 2,    ///< the command line cannot be understood
  kRefused = 3,  ///< the input is wrong: tables, requests, unknown parts, files that are not there
  kStorage = 4,  ///< the database or the disk refused, or the output cannot be written
};

/// Reads the command line and does what it says. Results go to the output, errors and progress to the errors.
/// Nothing is thrown.
int RunCommandLine(int argc, const char* const* argv, const Console& console);

}  // namespace lumira
