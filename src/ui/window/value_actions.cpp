#include "ui/window/value_actions.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <cstdlib>

#include "ui/widgets/bit_cell.h"
#include "ui/window/command.h"

namespace corvane::ui {

namespace {

QString TextOf(const QLabel& value) {
    const auto* bit = qobject_cast<const BitCell*>(&value);
    return bit != nullptr ? bit->StateText() : value.text();
}

void Copy(const QLabel& value) {
    if (const QString text = TextOf(value); !text.isEmpty()) {
        QGuiApplication::clipboard()->setText(text);
    }
}

bool IsLeftButton(const QEvent& event) {
    return dynamic_cast<const QMouseEvent&>(event).button() == Qt::LeftButton;
}

// How far one place is from another in the direction of the arrow key; a place that lies aside is
// farther. Negative: it lies elsewhere.
int DistanceTowards(int key, QPoint from, QPoint to) {
    const QPoint way = to - from;
    const bool isHorizontal = key == Qt::Key_Left || key == Qt::Key_Right;
    const bool isBackwards = key == Qt::Key_Left || key == Qt::Key_Up;
    const int along = (isHorizontal ? way.x() : way.y()) * (isBackwards ? -1 : 1);
    const int aside = std::abs(isHorizontal ? way.y() : way.x());
    constexpr int kLeast = 3;  // pixels by which the middles of neighbours differ at least
    constexpr int kAsideWeight = 4;
    return along < kLeast ? -1 : along + kAsideWeight * aside;
}

}  // namespace

// What an entry of the context menu does with the value that it is open for.
template <typename Action>
auto ValueActions::ForContextValue(Action action) {
    return [this, action] {
        if (contextValue_ != nullptr) {
            action(*contextValue_);
        }
    };
}

ValueActions::ValueActions(QWidget& window, const QString& changeCaption)
    : QObject(&window), window_(&window), contextMenu_(new QMenu(&window)) {
    AddCommand(*contextMenu_, {"valuecopy", tr("&Copy") + "\tCtrl+C"}, *this,
               ForContextValue(Copy));
    AddCommand(*contextMenu_, {"valuechange", changeCaption + "\tF2"}, *this,
               ForContextValue([this](QLabel& value) { emit ChangeRequested(&value); }));
}

void ValueActions::OfferLastChange() {
    AddCommand(*contextMenu_, {"valuelastchange", tr("Run &Back to Last Change")}, *this,
               ForContextValue([this](QLabel& value) { emit LastChangeRequested(&value); }));
}

void ValueActions::Add(QLabel& value) {
    value.setFocusPolicy(Qt::ClickFocus);
    value.installEventFilter(this);
    values_.push_back(&value);
    if (current_ == nullptr) {
        SetCurrent(value);
    }
}

void ValueActions::SetCurrent(QLabel& value) {
    if (current_ != nullptr) {
        current_->setFocusPolicy(Qt::ClickFocus);
    }
    current_ = &value;
    value.setFocusPolicy(Qt::StrongFocus);
}

void ValueActions::ShowSelected(QLabel& value, bool isSelected) {
    if (isSelected) {
        background_ = value.backgroundRole();
        foreground_ = value.foregroundRole();
        fillsBackground_ = value.autoFillBackground();
    }
    value.setBackgroundRole(isSelected ? QPalette::Highlight : background_);
    value.setForegroundRole(isSelected ? QPalette::HighlightedText : foreground_);
    value.setAutoFillBackground(isSelected || fillsBackground_);
}

QLabel* ValueActions::Neighbour(const QLabel& value, int key) const {
    const auto middle = [this](const QLabel& label) {
        return label.mapTo(window_, label.rect().center());
    };
    QLabel* nearest = nullptr;
    int leastDistance = 0;
    for (QLabel* other : values_) {
        const int distance = DistanceTowards(key, middle(value), middle(*other));
        if (distance > 0 && other->isVisible() &&
            (nearest == nullptr || distance < leastDistance)) {
            nearest = other;
            leastDistance = distance;
        }
    }
    return nearest;
}

bool ValueActions::HandleKey(QLabel& value, QKeyEvent& key) {
    switch (key.key()) {
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
            if (QLabel* neighbour = Neighbour(value, key.key())) {
                neighbour->setFocus(Qt::OtherFocusReason);
            }
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_F2:
            emit ChangeRequested(&value);
            return true;
        default:
            break;
    }
    if (key.matches(QKeySequence::Copy)) {
        Copy(value);
        return true;
    }
    return false;
}

bool ValueActions::eventFilter(QObject* watched, QEvent* event) {
    auto* value = qobject_cast<QLabel*>(watched);
    switch (event->type()) {
        case QEvent::FocusIn:
            SetCurrent(*value);
            ShowSelected(*value, true);
            break;
        case QEvent::FocusOut:
            ShowSelected(*value, false);
            break;
        case QEvent::KeyPress:
            return HandleKey(*value, dynamic_cast<QKeyEvent&>(*event));
        case QEvent::MouseButtonRelease:
            if (IsLeftButton(*event)) {
                emit Clicked(value);
            }
            break;
        case QEvent::MouseButtonDblClick:
            if (IsLeftButton(*event)) {
                emit ChangeRequested(value);
            }
            break;
        case QEvent::ContextMenu:
            contextValue_ = value;
            value->setFocus(Qt::MouseFocusReason);
            contextMenu_->popup(dynamic_cast<const QContextMenuEvent&>(*event).globalPos());
            return true;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace corvane::ui
