#include "ui/dialogs/about_window.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "models/catalogue.h"
#include "ui/desktop/application_icon.h"
#include "ui/window/accessible_window.h"

namespace corvane::ui {

namespace {

constexpr QSize kIconSize(64, 64);

QLabel* NewIcon() {
    auto* icon = new QLabel;
    icon->setPixmap(ApplicationIcon().pixmap(kIconSize, icon->devicePixelRatio()));
    icon->setAccessibleName(AboutWindow::tr("Icon of Corvane"));
    return icon;
}

// "PIC16F83, PIC16F84 and PIC16F627"
QString ModelNames() {
    QStringList names;
    for (const models::Model& model : models::kModelCatalogue) {
        names.append(QString::fromLatin1(model.name.data(), std::ssize(model.name)));
    }
    std::ranges::sort(names, {}, [](const QString& name) { return std::pair(name.size(), name); });
    const QString last = names.takeLast();
    return AboutWindow::tr("%1 and %2").arg(names.join(", "), last);
}

}  // namespace

AboutWindow::AboutWindow() {
    setObjectName("AboutWindow");
    setWindowTitle(tr("About Corvane"));
    setAttribute(Qt::WA_DeleteOnClose);
    MakeAccessibleAsWindow(*this);

    auto* name = new QLabel(tr("Corvane"));
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 2);
    large.setBold(true);
    name->setFont(large);
    auto* version = new QLabel(tr("Version %1").arg(QCoreApplication::applicationVersion()));
    auto* purpose =
        new QLabel(tr("Development and simulation environment for the microcontrollers %1.")
                       .arg(ModelNames()));
    purpose->setWordWrap(true);
    auto* licence = new QLabel(tr("Free software under the MIT License, without any warranty."));
    licence->setWordWrap(true);
    auto* close = new QPushButton(tr("Close"));
    close->setObjectName("Command1");
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    const auto* escape = new QShortcut(Qt::Key_Escape, this);
    connect(escape, &QShortcut::activated, this, &QWidget::close);

    auto* texts = new QVBoxLayout;
    texts->setSpacing(10);
    for (QLabel* text : {name, version, purpose, licence}) {
        texts->addWidget(text);
    }
    texts->addStretch();
    auto* content = new QHBoxLayout;
    content->setSpacing(20);
    content->addWidget(NewIcon(), 0, Qt::AlignTop);
    content->addLayout(texts, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 20, 24, 16);
    layout->addLayout(content);
    layout->addSpacing(18);
    layout->addWidget(close, 0, Qt::AlignRight);
    resize(420, sizeHint().height());
}

}  // namespace corvane::ui
