#include "opening/window/carry_commands.h"

#include <fmt/format.h>

#include <QDialog>
#include <utility>

#include "base/system/workstation.h"
#include "books/carrying/carry_forward.h"
#include "books/carrying/carry_repeat.h"
#include "books/carrying/carry_table.h"
#include "books/carrying/carry_texts.h"
#include "opening/sheet/opening_texts.h"
#include "opening/window/carry_window.h"
#include "opening/window/carry_window_texts.h"
#include "screen/shown.h"
#include "session/CCheckAuth.h"

namespace chengheng {
namespace {

/// In the rights list: 上年结转.
constexpr int carryForwardRight = 45;

}  // namespace

CarryCommands::CarryCommands(OpeningWork& work, IMessages& messages, QWidget& window,
                             std::function<void()> showChanges)
    : m_work(work), m_messages(messages), m_window(window), m_showChanges(std::move(showChanges)) {}

void CarryCommands::carry() {
    if (!CCheckAuth(carryForwardRight, 1, nullptr)) return;
    const BooksRegistry registry(booksHome());
    std::vector<Notice> untold;
    m_work.carryForward([&] {
        CarriedForward carried;
        runCancellable(shown(opening_texts::carrying), &m_window, [&](const WorkTold& told) {
            carried = carryForward(registry, untold, told);
        });
        return carried;
    });
    m_showChanges();
    tell(untold);
}

void CarryCommands::preview() {
    const BooksRegistry registry(booksHome());
    CarryPreview preview;
    if (!look([&](std::vector<Notice>& untold, const WorkTold& told) {
            return previewCarry(registry, preview, untold, told);
        }))
        return;
    CarryWindow(carryTable(preview), {}, &m_window).DoModal();
}

void CarryCommands::verify() {
    const BooksRegistry registry(booksHome());
    std::vector<CarryDifference> differences;
    if (!look([&](std::vector<Notice>& untold, const WorkTold& told) {
            return verifyCarry(registry, differences, untold, told);
        }))
        return;
    CarryWindow(carryTable(differences), {}, &m_window).DoModal();
}

void CarryCommands::repeat() {
    if (!CCheckAuth(carryForwardRight, 1, nullptr)) return;
    const bool isRead = m_work.refresh() == Outcome::done;
    m_showChanges();
    const BooksRegistry registry(booksHome());
    RepeatPlan plan;
    if (!isRead || !look([&](std::vector<Notice>& untold, const WorkTold& told) {
            return lookAtRepeat(registry, plan, untold, told);
        }))
        return;
    if (plan.isEmpty()) return m_messages.tell({.text = carry_texts::proven});
    const std::string question =
        plan.carried.empty() ? "" : fmt::format(carry_window_texts::askRepeat, plan.text(false));
    CarryWindow window(carryTable(plan), question, &m_window);
    if (window.DoModal() != QDialog::Accepted) return;
    m_work.carryAgain(carriedAgain(plan), [this](const auto& work) {
        runCancellable(shown(carry_window_texts::repeating), &m_window, work);
    });
    m_showChanges();
}

bool CarryCommands::look(const Look& look) {
    std::vector<Notice> untold;
    Outcome outcome = Outcome::failed;
    runCancellable(shown(carry_window_texts::comparing), &m_window,
                   [&](const WorkTold& told) { outcome = look(untold, told); });
    tell(untold);
    return outcome == Outcome::done;
}

void CarryCommands::tell(const std::vector<Notice>& untold) {
    for (const Notice& notice : untold) m_messages.tell(notice);
}

}  // namespace chengheng
