#pragma once

/// The two directions between the lengths of the texts and those of the buffer. Multiplying and dividing by
/// the whole number 1000 rounds once; 0.001 is itself rounded.
inline double KorMillimetresFromMetres(double metres) { return metres * 1000; }
inline double KorMetresFromMillimetres(double millimetres) { return millimetres / 1000; }
