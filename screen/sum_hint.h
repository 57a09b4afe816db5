#pragma once

#include <functional>

class QLineEdit;
class QString;

namespace chengheng {

/// What stands beside a text while it is typed; empty: nothing.
using SumOf = std::function<QString(const QString& typed)>;

/// Shows below a field, or above it where there is no room, what the sum comes to that is being
/// typed into it. Lives as long as the field.
void showSums(QLineEdit& field, SumOf sumOf);

}  // namespace chengheng
