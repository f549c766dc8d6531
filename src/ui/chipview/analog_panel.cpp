#include "ui/chipview/analog_panel.h"

#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <cmath>
#include <utility>

#include "ui/widgets/data_label.h"

namespace corvane::ui {

namespace {

constexpr int kWidestValue = 5;  // "5.00V"
constexpr int kSliderLength = 130;

DataLabel* MakeValueLabel(const char* name, const QString& meaning) {
    auto* label = new DataLabel(kWidestValue);
    label->setObjectName(QLatin1String(name));
    label->setAlignment(Qt::AlignCenter);
    label->SetMeaning(meaning);
    return label;
}

}  // namespace

AnalogPanel::AnalogPanel(models::ModelFamily family)
    : family_(family),
      unit_(app::AnalogUnitOf(models::TraitsOf(family))),
      channelLabel_(MakeValueLabel("labela1", tr("Analog input"))),
      valueLabel_(MakeValueLabel("labela2", tr("New value of the analog input"))),
      slider_(new QSlider(Qt::Vertical)),
      typed_(new QDoubleSpinBox) {
    setObjectName("Frame1");
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    QSizePolicy policy = sizePolicy();
    policy.setRetainSizeWhenHidden(true);  // the package is drawn around it
    setSizePolicy(policy);
    setAccessibleName(tr("Change analog value"));
    MakeSlider();
    MakeTypedValue();

    auto* accept = new QPushButton(tr("Accept"));
    accept->setObjectName("Command2");
    connect(accept, &QPushButton::clicked, this, &AnalogPanel::Accept);

    auto* captions = new QVBoxLayout;
    captions->setSpacing(0);
    for (const QString& caption : {tr("CHANGE"), tr("ANALOG"), tr("VALUE")}) {
        captions->addWidget(new QLabel(caption), 0, Qt::AlignHCenter);
    }
    auto* grid = new QGridLayout(this);
    grid->addWidget(slider_, 0, 0, 3, 1);
    grid->addLayout(captions, 0, 1);
    grid->addWidget(channelLabel_, 1, 1, Qt::AlignHCenter | Qt::AlignBottom);
    grid->addWidget(valueLabel_, 2, 1, Qt::AlignHCenter);
    grid->addWidget(typed_, 3, 0, 1, 2);
    grid->addWidget(accept, 4, 0, 1, 2);
    grid->setRowStretch(1, 1);
    hide();
}

void AnalogPanel::MakeSlider() {
    const int fullScale = models::TraitsOf(family_).analogFullScale;
    slider_->setObjectName("VScroll1");
    slider_->setAccessibleName(tr("Analog value"));
    slider_->setRange(0, fullScale);
    slider_->setPageStep(fullScale / 100 * 10);
    slider_->setMinimumHeight(kSliderLength);
    connect(slider_, &QSlider::valueChanged, this, &AnalogPanel::ShowValue);
}

void AnalogPanel::MakeTypedValue() {
    typed_->setObjectName("analogValue");
    typed_->setAccessibleName(tr("Analog value to type"));
    typed_->setToolTip(tr("The value can be typed here"));
    typed_->setLocale(QLocale::c());     // as the values beside the pins are written
    typed_->setKeyboardTracking(false);  // a value half typed is none
    typed_->setDecimals(unit_.decimals);
    typed_->setSuffix(QLatin1String(unit_.suffix));
    typed_->setRange(0, InUnits(models::TraitsOf(family_).analogFullScale));
    typed_->setSingleStep(InUnits(1));
    connect(typed_, &QDoubleSpinBox::valueChanged, slider_, [this](double value) {
        slider_->setValue(static_cast<int>(std::lround(value / InUnits(1))));
    });
}

double AnalogPanel::InUnits(int value) const {
    return value * std::pow(10.0, -unit_.decimals);
}

void AnalogPanel::Open(int channel, int value) {
    selectedChannel_ = channel + 1;
    channelLabel_->ShowText("AN" + std::to_string(channel));
    slider_->setValue(value);
    ShowValue(value);
    show();
    slider_->setFocus();
}

void AnalogPanel::ShowValue(int value) {
    valueLabel_->ShowText(app::AnalogValueText(models::TraitsOf(family_), value));
    typed_->setValue(InUnits(value));
}

void AnalogPanel::Accept() {
    hide();
    emit Accepted(std::exchange(selectedChannel_, 0) - 1, slider_->value());
}

void AnalogPanel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Accept();
    } else {
        QFrame::keyPressEvent(event);
    }
}

}  // namespace corvane::ui
