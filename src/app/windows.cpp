#include "app/windows.h"

namespace corvane::app {

Window ChipViewOf(models::ModelFamily family) {
    return static_cast<Window>(models::TraitsOf(family).chipWindow);
}

}  // namespace corvane::app
