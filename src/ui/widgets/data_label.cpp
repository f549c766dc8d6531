#include "ui/widgets/data_label.h"

#include <QAnyStringView>

#include "ui/widgets/data_font.h"
#include "ui/widgets/field_frame.h"
#include "ui/window/accessible_window.h"

namespace corvane::ui {

DataLabel::DataLabel(int columns, QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setFont(DataFont());
    setFixedSize(DataTextSize(columns, 1));
    MakeAccessibleAsValue(*this);
}

void DataLabel::SetFramed() {
    SetFieldFrame(*this);
    setFixedSize(size() + QSize(2 * kFieldPadding, 2 * kFieldPadding));
}

void DataLabel::SetMeaning(const QString& meaning) {
    if (accessibleDescription() != meaning) {
        setAccessibleDescription(meaning);
        setToolTip(meaning);
    }
}

void DataLabel::ShowText(std::string_view newText) {
    const QUtf8StringView view(newText.data(), static_cast<qsizetype>(newText.size()));
    if (!QAnyStringView::equal(text(), view)) {
        setText(view.toString());
    }
}

void DataLabel::Emphasize(bool on) {
    if (font().bold() != on) {
        QFont changed = font();
        changed.setBold(on);
        setFont(changed);
    }
}

}  // namespace corvane::ui
