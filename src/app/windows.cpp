#include "app/windows.h"

namespace corvane::app {

Window ChipViewOf(models::ModelFamily family) {
    switch (family) {
        case models::ModelFamily::Pic16F8x:
            return Window::ChipView18;
        case models::ModelFamily::Pic16F87x28:
            return Window::ChipView28;
        case models::ModelFamily::Pic16F87x40:
            return Window::ChipView40;
        case models::ModelFamily::Pic16F62x:
            break;
    }
    return Window::ChipView62x;
}

}  // namespace corvane::app
