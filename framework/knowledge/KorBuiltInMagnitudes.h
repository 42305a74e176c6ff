#pragma once

#include <vector>

#include "framework/knowledge/KorCkeMagnitude.h"

/// The magnitudes that the host knows without being told, each with its units, new objects at each call.
std::vector<KorCkeMagnitude_var> KorMakeBuiltInMagnitudes();
