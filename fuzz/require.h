// How a fuzz target says what must hold: a false condition ends the program, which libFuzzer
// reports with the input that led there.
#pragma once

#include <cstdlib>

inline void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}
