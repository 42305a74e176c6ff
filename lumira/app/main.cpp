#include <unistd.h>

#include <iostream>

#include "lumira/app/CommandLine.h"

int main(int argc, char** argv) {
  return lumira::RunCommandLine(argc, argv, {std::cout, std::cerr, isatty(STDERR_FILENO) == 1});
}
