#pragma once

#include <string>
#include <vector>

namespace chengheng {

enum class FormKind {
    batch,      ///< statements for QRYExecuteSQL
    select,     ///< a text for QRYGetData
    condition,  ///< what follows WHERE in a list read of `table`
};

/// A statement or condition as the functions of the module write it, with values filled in.
/// Texts among the values hold what is apt to do harm: quotes, %, _, backslashes, line ends.
struct StatementForm {
    FormKind kind;
    std::string table;  ///< of a condition
    std::string text;
};

/// Every form in use. The batches can be run one after the other on one set of books, in
/// which a table ProjItems01 stands beside those of the layout.
std::vector<StatementForm> statementForms();

}  // namespace chengheng
