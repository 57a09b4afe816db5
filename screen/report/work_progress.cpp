#include "screen/report/work_progress.h"

#include "screen/screen_texts.h"

namespace chengheng {
namespace {

constexpr int moment = 400;  // milliseconds

}  // namespace

WorkProgressBox::WorkProgressBox(const char* text, QWidget* parent)
    : m_box(QString::fromUtf8(text), QString::fromUtf8(screen_texts::cancel), 0, 1, parent) {
    m_box.setWindowTitle(QString::fromUtf8(screen_texts::productName));
    m_box.setWindowModality(Qt::WindowModal);
    m_box.setMinimumDuration(moment);
    m_box.setAutoReset(false);
}

void WorkProgressBox::close() {
    m_isCancelled = isCancelled();
    m_box.reset();
}

WorkProgress WorkProgressBox::progress() {
    return [this](std::size_t done, std::size_t all) {
        m_box.setMaximum(static_cast<int>(all));
        m_box.setValue(static_cast<int>(done));
        return !m_box.wasCanceled();
    };
}

}  // namespace chengheng
