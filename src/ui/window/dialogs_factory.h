// How a window gets the dialogs that are modal to it.
#pragma once

#include <functional>
#include <memory>

#include "app/dialogs.h"

class QWidget;

namespace corvane::ui {

using DialogsFactory = std::function<std::unique_ptr<app::Dialogs>(QWidget& window)>;

}  // namespace corvane::ui
