// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/splash_window.h"

#include "ui/bindings.h"
#include "ui/text.h"

#include <QCloseEvent>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QSvgRenderer>
#include <QTimer>

namespace comfortics::ui {

namespace {

constexpr QSize kSize(480, 270);
constexpr int kTextLeft = 32;
constexpr int kVersionTop = 190;
constexpr int kNameTop = 128;
constexpr int kNamePixels = 46;
constexpr int kVersionPixels = 16;

// The logo, as sharp as the screen is.
class Logo : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        m_picture.render(&painter, QRectF(rect()));
    }

private:
    QSvgRenderer m_picture{QStringLiteral(":/logo.svg")};
};

QLabel* textOnLogo(QWidget& parent, int top, int pixels, bool bold)
{
    auto* const label = new QLabel(&parent);
    QFont font = label->font();
    font.setPixelSize(pixels);
    font.setBold(bold);
    label->setFont(font);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, Qt::white);
    label->setPalette(palette);
    label->setGeometry(kTextLeft, top, kSize.width() - kTextLeft, label->fontMetrics().height());
    return label;
}

} // namespace

SplashWindow::SplashWindow(shell::Frm_Splash_Screen& form)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint)
{
    setWindowTitle(toQt(form.caption()));
    setFixedSize(kSize);
    auto* const logo = new Logo(this);
    logo->setGeometry(form.Img_Ostrel.left(), form.Img_Ostrel.top(), kSize.width(), kSize.height());
    textOnLogo(*this, kNameTop, kNamePixels, true)->setText(toQt(form.caption()));
    bind(*textOnLogo(*this, kVersionTop, kVersionPixels, false), form.lbl_Version);
    bind(*new QTimer(this), form.tmr_Splash);
    QRect frame(QPoint(), kSize);
    frame.moveCenter(screen()->availableGeometry().center());
    move(frame.topLeft());
    listen(*this, form.visibility, [this, &form] { setVisible(form.visible()); });
}

// It goes by itself.
void SplashWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
}

} // namespace comfortics::ui
