#include "setting/window/hub_windows.h"

#include "accounts/window/CNbCwBursarDlg.h"
#include "base/system/workstation.h"
#include "currency/window/currency_window.h"
#include "directories/window/directory_window.h"
#include "opening/window/CNbCwBegleftDlg.h"
#include "operators/window/division_window.h"
#include "screen/books/books_parameters_window.h"
#include "screen/books/own_password_window.h"
#include "screen/log/log_window.h"
#include "settle/window/CNbCwSettleDlg.h"
#include "vouchertype/window/preset_wizard.h"
#include "vouchertype/window/voucher_type_window.h"

namespace chengheng {
namespace {

template <class Window>
void runModally() {
    Window(nullptr).DoModal();
}

template <DirectoryKind kind>
void runDirectory() {
    DirectoryWindow(directoryOf(kind), nullptr).DoModal();
}

void runParameters() {
    const BooksRegistry registry(booksHome());
    BooksParametersWindow(registry, nullptr).DoModal();
}

struct Launcher {
    HubFunction function;
    void (*launch)();
};

constexpr Launcher launchers[] = {
    {HubFunction::divide, runModally<DivisionWindow>},
    {HubFunction::bursar, runModally<CNbCwBursarDlg>},
    {HubFunction::exchange, runModally<CurrencyWindow>},
    {HubFunction::begleft, runModally<CNbCwBegleftDlg>},
    {HubFunction::species, runModally<VoucherTypeWindow>},
    {HubFunction::method, runModally<CNbCwSettleDlg>},
    {HubFunction::departments, runDirectory<DirectoryKind::department>},
    {HubFunction::persons, runDirectory<DirectoryKind::person>},
    {HubFunction::unitClasses, runDirectory<DirectoryKind::unitClass>},
    {HubFunction::units, runDirectory<DirectoryKind::unit>},
    {HubFunction::projectClasses, runDirectory<DirectoryKind::projectClass>},
    {HubFunction::projectItems, runDirectory<DirectoryKind::projectItem>},
    {HubFunction::parameters, runParameters},
    {HubFunction::ownPassword, runModally<OwnPasswordWindow>},
    {HubFunction::operationLog, runModally<LogWindow>},
};

}  // namespace

void HubWindows::show(HubFunction function) {
    for (const Launcher& launcher : launchers) {
        if (launcher.function == function) launcher.launch();
    }
}

static_assert(PresetWizard::finished == wizardFinished);

int HubWindows::runPresetWizard() { return PresetWizard(nullptr).DoModal(); }

}  // namespace chengheng
