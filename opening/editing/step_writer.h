#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/messages/messages.h"
#include "opening/sheet/edit_journal.h"
#include "opening/storing/opening_reading.h"
#include "opening/storing/posting.h"
#include "session/record_change.h"

namespace chengheng {

/// Makes a step out of the sheet as it stands. It is asked a second time only with a sheet that
/// was read anew.
using StepMaker = std::function<EditStep(const OpeningSheet& sheet)>;

/// What is written beside a step, in its unit of work, once its figures are.
using BesideWork = std::function<UntoldOutcome()>;

/// Told of the accounts that are written; false: the writing is to be given up.
using WritingTold = std::function<bool(std::size_t done, std::size_t total)>;

/// Writes a step into the open set of books and into the sheet: the rows of the accounts it
/// changes and those of all accounts above them, under the locks and in one unit of work, so that
/// the books hold at once what a save would give. Unless it is done, both are as before.
///
/// When another workstation has changed any of these rows since the sheet was read, everything
/// is read anew first, so that neither loses what the other typed. That holds for a figure that
/// the step leaves as it is, too: it is compared with the books, not with the sheet.
class StepWriter {
  public:
    explicit StepWriter(OpeningBooks& books, WriteRight right = WriteRight::opening)
        : m_books(books), m_locks{right, "Code", "AccSum"} {}

    /// `written` is the step with the figures it replaced; empty when there was nothing to do.
    Outcome write(IMessages& messages, const StepMaker& make, EditStep& written,
                  const BesideWork& beside = {}, const WritingTold& told = {});
    /// Whether the sheet was read anew.
    bool hasReadAnew() const { return m_hasReadAnew; }

  private:
    struct Place {
        std::size_t account;
        Balances before;
        std::optional<StoredSums> stored;
    };

    UntoldOutcome run(const StepMaker& make, const WritingTold& told);
    UntoldOutcome writeStep(OpeningSheet& sheet, const WritingTold& told);
    void collectPlaces(const OpeningSheet& sheet);
    Status compareWithStored(bool& isCurrent);
    Status compare(Place& place, bool& isCurrent);
    Status post(const OpeningSheet& sheet, const WritingTold& told);
    std::string inWords(const OpeningSheet& sheet) const;
    void takeBack();

    OpeningBooks& m_books;
    const LockLists m_locks;
    std::optional<OpeningBooks> m_fresh;
    EditStep m_step;
    std::vector<Place> m_places;  ///< the changed accounts, then those above, the deepest first
    bool m_hasReadAnew = false;
};

}  // namespace chengheng
