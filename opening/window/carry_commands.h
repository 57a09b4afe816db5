#pragma once

#include <functional>
#include <vector>

#include "base/messages/messages.h"
#include "opening/screen/opening_work.h"
#include "screen/cancellable_work.h"

class QWidget;

namespace chengheng {

/// The commands of the opening window that have to do with the books of the year before. Whatever
/// takes long shows how much of it is done and can be given up, which changes nothing.
class CarryCommands {
  public:
    /// `showChanges` shows what has become of the sheet.
    CarryCommands(OpeningWork& work, IMessages& messages, QWidget& window,
                  std::function<void()> showChanges);

    void carry();
    /// What it would carry and what stands in its way.
    void preview();
    /// What has become of last year since: shown, asked about, carried.
    void repeat();
    /// This year's openings against last year's closings.
    void verify();

  private:
    using Look = std::function<Outcome(std::vector<Notice>& untold, const WorkTold& told)>;

    /// Looks, with a box when that takes long, and tells what there is to tell.
    bool look(const Look& look);
    void tell(const std::vector<Notice>& untold);

    OpeningWork& m_work;
    IMessages& m_messages;
    QWidget& m_window;
    const std::function<void()> m_showChanges;
};

}  // namespace chengheng
