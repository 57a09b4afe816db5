#pragma once

#include <string>
#include <vector>

namespace chengheng {

/// A line of what the hub shows about the work at hand.
struct HubStatusLine {
    std::string caption;
    std::string value;

    bool operator==(const HubStatusLine&) const = default;
};

/// The open set of books, who is logged on and the date they work at, as the host tells them.
/// What the host does not tell has no line.
std::vector<HubStatusLine> hubStatus();

/// What there was since the operator's last log-on.
struct HubLogonLine {
    std::string text;        ///< empty: nothing is known
    bool isWarning = false;  ///< somebody gave wrong passwords
};

HubLogonLine hubLogonLine();

}  // namespace chengheng
