#pragma once

#include <array>
#include <string_view>

#include "base/messages/messages.h"

namespace chengheng {

enum class HubFunction {
    divide,
    bursar,
    exchange,
    begleft,
    species,
    method,
    exit,
    departments,
    persons,
    unitClasses,
    units,
    projectClasses,
    projectItems,
    parameters,
    ownPassword,
    operationLog
};

/// A function's place on the hub, in pixels of the background, and its picture.
struct HubRegion {
    HubFunction function;
    int command;
    int left;
    int top;
    int width;
    int height;
    int image;
};

/// The regions in the order in which they are inserted, which is that of the keyboard too.
inline constexpr std::array hubRegions{
    HubRegion{HubFunction::divide, 32776, 94, 83, 123, 29, 1309},
    HubRegion{HubFunction::bursar, 32775, 94, 112, 123, 31, 1302},
    HubRegion{HubFunction::exchange, 200, 94, 143, 123, 32, 1303},
    HubRegion{HubFunction::begleft, 298, 94, 175, 123, 27, 1304},
    HubRegion{HubFunction::species, 32777, 260, 222, 122, 27, 1305},
    HubRegion{HubFunction::method, 32778, 260, 249, 122, 36, 1306},
    HubRegion{HubFunction::exit, 32774, 482, 288, 72, 31, 1308},
};

/// A function that the hub opens from its menu alone.
struct HubMenuCommand {
    HubFunction function;
    int command;
};

inline constexpr std::array hubMenuCommands{
    HubMenuCommand{HubFunction::departments, 33001},
    HubMenuCommand{HubFunction::persons, 33002},
    HubMenuCommand{HubFunction::unitClasses, 33003},
    HubMenuCommand{HubFunction::units, 33004},
    HubMenuCommand{HubFunction::projectClasses, 33005},
    HubMenuCommand{HubFunction::projectItems, 33006},
    HubMenuCommand{HubFunction::parameters, 33007},
    HubMenuCommand{HubFunction::ownPassword, 33008},
    HubMenuCommand{HubFunction::operationLog, 33009},
};

/// Whether the host wants only the opening balances: -ERPCONSOLE or -ERPSINGLE, in any case.
bool opensOnlyOpeningBalances(std::string_view launchArgument);

/// What the preset wizard gives when it was finished; anything else is a wizard given up.
inline constexpr int wizardFinished = 0x3025;

/// The windows that the hub launches. Each is modal and gone when the call returns.
class IHubWindows {
  public:
    virtual ~IHubWindows() = default;
    virtual void show(HubFunction function) = 0;
    virtual int runPresetWizard() = 0;
};

/// What stands between a region of the hub and its window: who may open it and when.
class HubFunctions {
  public:
    HubFunctions(IMessages& messages, IHubWindows& windows)
        : m_messages(messages), m_windows(windows) {}

    /// Opens the function's window when every check allows it; the first check that does not
    /// has told the operator why.
    void open(HubFunction function);

  private:
    /// Without a voucher type the preset wizard runs first, and the window opens only when it
    /// was finished. Types that cannot be read lead to neither.
    void openSpecies();

    IMessages& m_messages;
    IHubWindows& m_windows;
};

}  // namespace chengheng
