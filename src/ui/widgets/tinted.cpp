#include "ui/widgets/tinted.h"

#include <cmath>

namespace corvane::ui {

QColor Tinted(const QColor& background, const QColor& tint, double share) {
    const auto mixed = [share](int from, int to) {
        return static_cast<int>(std::lround(from + (to - from) * share));
    };
    return {mixed(background.red(), tint.red()), mixed(background.green(), tint.green()),
            mixed(background.blue(), tint.blue())};
}

}  // namespace corvane::ui
