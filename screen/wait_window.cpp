#include "screen/wait_window.h"

#include <QApplication>
#include <QEventLoop>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QTimer>

#include "screen/colours.h"
#include "screen/fonts.h"

namespace chengheng {
namespace {

constexpr int wheelSize = 28;
constexpr int spokes = 10;
constexpr int turnTime = 60;
constexpr int paintTime = 60;
constexpr int margin = 18;

/// Spokes in a ring, the darkest of which goes round.
class Wheel final : public QWidget {
  public:
    explicit Wheel(QWidget* parent) : QWidget(parent) {
        setFixedSize(wheelSize, wheelSize);
        auto* timer = new QTimer(this);
        connect(timer, &QTimer::timeout, this, [this] {
            m_turn = (m_turn + 1) % spokes;
            update();
        });
        timer->start(turnTime);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(width() / 2.0, height() / 2.0);
        for (int spoke = 0; spoke < spokes; ++spoke) {
            QColor colour = colours::teal;
            colour.setAlphaF(1.0F - static_cast<float>((spokes + m_turn - spoke) % spokes) /
                                        static_cast<float>(spokes));
            painter.setPen(QPen(colour, 2.4, Qt::SolidLine, Qt::RoundCap));
            painter.drawLine(QPointF(0, -wheelSize * 0.25), QPointF(0, -wheelSize * 0.43));
            painter.rotate(360.0 / spokes);
        }
    }

  private:
    int m_turn = 0;
};

}  // namespace

WaitWindow::WaitWindow(const QString& text, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
    setFont(windowFont());
    setWindowTitle(parent ? parent->windowTitle() : QString());
    setWindowModality(Qt::ApplicationModal);
    auto* label = new QLabel(text, this);
    label->setTextFormat(Qt::PlainText);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(margin, margin, margin, margin);
    row->setSpacing(margin);
    row->addWidget(new Wheel(this));
    row->addWidget(label);
    m_shown.start();
    show();
    paintFor(paintTime);
}

WaitWindow::~WaitWindow() {
    const auto left = shortestTime - static_cast<int>(m_shown.elapsed());
    if (left > 0) paintFor(left);
}

void WaitWindow::paintFor(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace chengheng
