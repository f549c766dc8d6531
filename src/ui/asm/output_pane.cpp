#include "ui/asm/output_pane.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QStyledItemDelegate>
#include <algorithm>
#include <utility>

#include "ui/widgets/data_font.h"
#include "ui/widgets/tinted.h"
#include "ui/window/command.h"

namespace corvane::ui {

// A link looks like one, and the one that was followed last is marked.
class OutputPane::LineDelegate final : public QStyledItemDelegate {
  public:
    explicit LineDelegate(OutputPane& pane) : QStyledItemDelegate(&pane), pane_(&pane) {}

    // The same for every line, so that the view need not ask for each.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
        const int margins = 2 * (pane_->style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1);
        const int width = option.fontMetrics.horizontalAdvance(u'0') * pane_->lines_.LongestLine();
        return {width + margins, option.fontMetrics.height()};
    }

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (pane_->LinkAt(index) == nullptr) {
            return;
        }
        QPalette& palette = option->palette;
        palette.setColor(QPalette::Text, palette.color(QPalette::Link));
        option->font.setUnderline(true);
        option->text = QStringView(option->text).trimmed().toString();
        if (pane_->followedLine_ == index.row() + 1) {
            option->backgroundBrush =
                Tinted(palette.color(QPalette::Base), palette.color(QPalette::Highlight), 0.15);
        }
    }

  private:
    OutputPane* pane_;
};

OutputPane::OutputPane(QWidget* parent) : QListView(parent), contextMenu_(new QMenu(this)) {
    setFont(DataFont());
    setModel(&lines_);
    setItemDelegate(new LineDelegate(*this));
    setUniformItemSizes(true);
    setTextElideMode(Qt::ElideNone);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(ExtendedSelection);
    setHorizontalScrollMode(ScrollPerPixel);
    setMouseTracking(true);
    AddCommand(*contextMenu_, {"outputcopy", tr("&Copy")}, *this, [this] { CopySelection(); });
    AddCommand(*contextMenu_, {"outputselectall", tr("Select &All")}, *this,
               [this] { selectAll(); });
}

void OutputPane::ShowOutput(const QString& text, std::vector<OutputLink> links) {
    followedLine_.reset();
    lines_.SetText(text, std::move(links));
    const QModelIndex last = lines_.index(lines_.rowCount() - 1);
    selectionModel()->setCurrentIndex(last, QItemSelectionModel::NoUpdate);
    scrollToBottom();
}

void OutputPane::Clear() {
    ShowOutput(QString(), {});
}

void OutputPane::CopySelection() {
    QModelIndexList selected = selectedIndexes();
    std::sort(selected.begin(), selected.end());
    QString text;
    for (const QModelIndex& index : selected) {
        text += lines_.Line(index.row()) + u'\n';
    }
    if (!text.isEmpty()) {
        QGuiApplication::clipboard()->setText(text);
    }
}

const OutputLink* OutputPane::LinkAt(const QModelIndex& index) const {
    return index.isValid() ? lines_.LinkAt(index.row()) : nullptr;
}

void OutputPane::FollowNext() {
    const std::vector<OutputLink>& links = lines_.Links();
    FollowFirst(links.begin(), links.end(), [this](const OutputLink& link) {
        return link.outputLine > followedLine_.value_or(0);
    });
}

void OutputPane::FollowPrevious() {
    const std::vector<OutputLink>& links = lines_.Links();
    FollowFirst(links.rbegin(), links.rend(), [this](const OutputLink& link) {
        return link.outputLine < followedLine_.value_or(0);
    });
}

// The first mistake that is so, or the first one at all.
template <typename Iterator, typename Condition>
void OutputPane::FollowFirst(Iterator begin, Iterator end, const Condition& isWanted) {
    const auto isMistake = [](const OutputLink& link) { return !link.isNote; };
    const auto wanted = std::find_if(
        begin, end, [&](const OutputLink& link) { return isMistake(link) && isWanted(link); });
    const auto followed = wanted != end ? wanted : std::find_if(begin, end, isMistake);
    if (followed != end) {
        Follow(*followed);
    }
}

void OutputPane::Follow(const OutputLink& link) {
    const OutputLink followed = link;  // whoever follows may show another output
    followedLine_ = link.outputLine;
    const QModelIndex index = lines_.index(link.outputLine - 1);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::Clear);
    scrollTo(index, PositionAtCenter);  // the source line stands above the message
    viewport()->update();
    emit LinkFollowed(followed);
}

void OutputPane::mouseMoveEvent(QMouseEvent* event) {
    const bool isOnLink = LinkAt(indexAt(event->pos())) != nullptr;
    viewport()->setCursor(isOnLink ? Qt::PointingHandCursor : Qt::ArrowCursor);
    QListView::mouseMoveEvent(event);
}

void OutputPane::mouseReleaseEvent(QMouseEvent* event) {
    QListView::mouseReleaseEvent(event);
    const OutputLink* link = LinkAt(indexAt(event->pos()));
    const bool isClick = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier;
    if (isClick && link != nullptr && selectedIndexes().size() <= 1) {
        Follow(*link);
    }
}

// While the pane has the focus, these keys are not the editor's.
bool OutputPane::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = dynamic_cast<QKeyEvent&>(*event);
        if (key.matches(QKeySequence::Copy) || key.matches(QKeySequence::SelectAll)) {
            event->accept();
            return true;
        }
    }
    return QListView::event(event);
}

void OutputPane::contextMenuEvent(QContextMenuEvent* event) {
    contextMenu_->popup(event->globalPos());
}

void OutputPane::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const OutputLink* link = LinkAt(currentIndex());
    if (event->matches(QKeySequence::Copy)) {
        CopySelection();
    } else if (isEnter && link != nullptr) {
        Follow(*link);
    } else {
        QListView::keyPressEvent(event);
    }
}

}  // namespace corvane::ui
