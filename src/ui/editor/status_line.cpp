#include "ui/editor/status_line.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyle>

namespace corvane::ui {

namespace {

// Gives up its end, not the window's width, to a text that is too long.
class EndingLabel final : public QLabel {
  public:
    EndingLabel() { setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); }

    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
        style()->drawItemText(&painter, rect(), Qt::AlignLeft | Qt::AlignVCenter, palette(),
                              isEnabled(), shown, foregroundRole());
    }
};

void Prepare(QLabel& label, const char* name, const QString& meaning) {
    label.setObjectName(name);
    label.setTextFormat(Qt::PlainText);
    label.setAccessibleDescription(meaning);
}

}  // namespace

StatusLine::StatusLine(QWidget* parent)
    : QWidget(parent), result_(new EndingLabel), offer_(new QPushButton(tr("Nothing is offered"))) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 2, 6, 3);
    layout->setSpacing(3 * layout->spacing());
    Prepare(*result_, "statusresult", tr("Last translation"));
    layout->addWidget(result_, 1);
    offer_->setObjectName("statusoffer");
    offer_->setFlat(true);
    offer_->hide();
    connect(offer_, &QPushButton::clicked, this, [this] {
        const std::function<void()> run = offered_;  // which may offer another
        run();
    });
    layout->addWidget(offer_);
    value_ = AddLabel("statusvalue", tr("Value at the caret"), QString());
    program_ = AddLabel("statusprogram", tr("Program of the text"), tr("Next: line %1").arg(99));
    state_ = AddLabel("statusstate", tr("State of the text"), tr("modified"));
    encoding_ = AddLabel("statusencoding", tr("Encoding"), "Latin-1");
    caret_ = AddLabel("statuscaret", tr("Caret"), tr("Line %1, Column %2").arg(9999).arg(99));
    ShowCaret(1, 1);
}

// As wide as its widest text, so that the others keep their places.
QLabel* StatusLine::AddLabel(const char* name, const QString& meaning, const QString& widestText) {
    auto* label = new QLabel;
    Prepare(*label, name, meaning);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(widestText));
    layout()->addWidget(label);
    return label;
}

void StatusLine::ShowResult(const QString& text) {
    result_->setText(text);
    result_->setToolTip(text);
    result_->update();
    OfferCommand({}, {});
}

void StatusLine::OfferCommand(const QString& caption, const std::function<void()>& run) {
    offered_ = run;
    if (!caption.isEmpty()) {
        offer_->setText(caption);
    }
    offer_->setVisible(!caption.isEmpty());
}

void StatusLine::ShowState(const QString& text) {
    state_->setText(text);
}

void StatusLine::ShowEncoding(const QString& name) {
    encoding_->setText(name);
}

void StatusLine::ShowProgram(const QString& text) {
    if (program_->text() != text) {
        program_->setText(text);
    }
}

void StatusLine::ShowValue(const QString& text) {
    if (value_->text() != text) {
        value_->setText(text);
    }
}

void StatusLine::ShowCaret(int line, int column, const QString& note) {
    const QString place = tr("Line %1, Column %2").arg(line).arg(column);
    caret_->setText(note.isEmpty() ? place : place + QStringLiteral(", ") + note);
}

}  // namespace corvane::ui
