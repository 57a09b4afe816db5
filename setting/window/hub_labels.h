#pragma once

class QWidget;

namespace chengheng {

/// Places the hub's heading, the names of its groups and the lines for its status on it.
void placeHubLabels(QWidget& hub);

/// Writes the status of the work at hand into its lines.
void showHubStatus(QWidget& hub);

}  // namespace chengheng
