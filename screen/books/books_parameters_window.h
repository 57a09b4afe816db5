#pragma once

#include "books/parameters/parameters_form.h"
#include "screen/CNxMiddleDialog.h"
#include "session/function_at_work.h"

class QCheckBox;
class QGridLayout;
class QLabel;
class QSpinBox;

namespace chengheng {

class LimitedEdit;

/// The parameters of the open set of books (帐套参数). Accepted once they are changed, or when
/// there was nothing to change.
class BooksParametersWindow final : public CNxMiddleDialog {
    Q_OBJECT

  public:
    /// The list outlives the window; one without a folder is none.
    BooksParametersWindow(const BooksRegistry& registry, QWidget* parent);

    void reject() override;
    bool OnHelpInfo() override;

  protected:
    bool OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;
    /// Between the controls and what is typed.
    void DoDataExchange(bool isSaving) override;

  private:
    void buildControls();
    LimitedEdit* addText(QGridLayout& fields, const char* label, const char* name,
                         std::size_t longest);
    QLabel* addHint(QGridLayout& fields);
    void showHints();

    const FunctionAtWork m_atWork;
    ParametersForm m_form;
    LimitedEdit* m_name = nullptr;
    LimitedEdit* m_company = nullptr;
    QCheckBox* m_foreign = nullptr;
    LimitedEdit* m_pattern = nullptr;
    QSpinBox* m_start = nullptr;
    QLabel* m_foreignHint = nullptr;
    QLabel* m_patternHint = nullptr;
    QLabel* m_startHint = nullptr;
};

}  // namespace chengheng
