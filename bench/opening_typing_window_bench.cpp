// A figure typed in the opening balance window, from the first keystroke until it is stored and
// painted: at several sizes of the chart, each against the smallest one, as an edit repaints and
// recounts only what it touched.

#include <QApplication>
#include <QKeyEvent>
#include <algorithm>
#include <chrono>
#include <string>

#include "bench/grouped_books.h"
#include "bench/timing.h"
#include "data/lookups/cached_records.h"
#include "opening/window/CNbCwBegleftDlg.h"
#include "screen/application.h"
#include "screen/grid/CVCF1.h"
#include "session/host_globals.h"

namespace {

using bench::require;

constexpr int smallest = 1'000;
constexpr int editedRow = 7;

/// The window on books of so many accounts. One may be open at a time.
class TypingBench {
  public:
    explicit TypingBench(int accounts)
        : m_books(accounts),
          m_session({.database = &m_books.database(), .databaseName = "books"}),
          m_lookups("books") {
        m_window.show();
        m_window.activateWindow();
        QCoreApplication::processEvents();
        m_grid = m_window.findChild<CVCF1*>("openings");
        require(m_grid != nullptr && m_grid->model()->rowCount() == accounts, "opening the window");
    }

    /// Types another figure, ends it by Enter, and waits until all that changed is painted.
    void type() {
        constexpr int mostDigit = 9;
        m_digit = m_digit == mostDigit ? 1 : m_digit + 1;
        m_grid->setCurrentIndex(m_grid->model()->index(editedRow, openingColumn()));
        press(Qt::Key_0 + m_digit, QString::number(m_digit));
        press(Qt::Key_Return, "\r");
        QCoreApplication::processEvents();
        const QString stored = m_grid->model()->index(editedRow, openingColumn()).data().toString();
        require(stored == QString::number(m_digit) + ".00", "typing a figure");
    }
    /// The least of many, in milliseconds.
    double leastTime() {
        using Clock = std::chrono::steady_clock;
        constexpr int times = 40;
        double least = 1e9;
        for (int time = 0; time < times; ++time) {
            const auto start = Clock::now();
            type();
            least = std::min(
                least, std::chrono::duration<double, std::milli>(Clock::now() - start).count());
        }
        return least;
    }

  private:
    int openingColumn() const {
        const QAbstractItemModel& model = *m_grid->model();
        for (int column = 0; column < model.columnCount(); ++column)
            if (model.flags(model.index(editedRow, column)) & Qt::ItemIsEditable) return column;
        require(false, "finding the column of figures");
        return 0;
    }
    void press(int key, const QString& text) {
        QWidget* const focus = m_window.focusWidget();
        require(focus != nullptr, "finding the focus");
        QKeyEvent pressed(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(focus, &pressed);
        QCoreApplication::processEvents();
    }

    bench::GroupedBooks m_books;
    chengheng::HostSession m_session;
    chengheng::BookLookups m_lookups;
    CNbCwBegleftDlg m_window;
    CVCF1* m_grid = nullptr;
    int m_digit = 0;
};

}  // namespace

int main(int count, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, arguments);
    chengheng::prepareApplication(application);
    const double floor = TypingBench(smallest).leastTime();
    for (const int accounts : {smallest, 10'000, 50'000})
        bench::reportTime("figure typed, stored and painted, " + std::to_string(accounts) +
                              " accounts, against " + std::to_string(smallest),
                          TypingBench(accounts).leastTime(), floor, 1.2);
}
