#include "ui/chipview/pin_label.h"

#include "ui/common/qt_text.h"

namespace corvane::ui {

namespace {

// The label with every overbarred part between two texts.
QString WithOverbarsAs(std::string_view label, QLatin1String before, QLatin1String behind) {
    QStringList parts = QtString(label).split(u'/');
    for (QString& part : parts) {
        if (part.startsWith(u'\\')) {
            part = before + part.mid(1) + behind;
        }
    }
    return parts.join(u'/');
}

}  // namespace

QString PinLabelInWords(std::string_view label) {
    return WithOverbarsAs(label, QLatin1String("not "), QLatin1String());
}

QLabel* MakePinLabel(std::string_view label) {
    auto* widget =
        new QLabel(WithOverbarsAs(label, QLatin1String("<span style='text-decoration: overline'>"),
                                  QLatin1String("</span>")));
    widget->setAccessibleName(PinLabelInWords(label));
    return widget;
}

}  // namespace corvane::ui
