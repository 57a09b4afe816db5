#pragma once

#include <memory>
#include <string>
#include <vector>

#include "accounts/screen/where_used.h"
#include "screen/CNxMiddleDialog.h"

class CVCF1;
class QLabel;
class QLayout;
class QListView;

namespace chengheng {
class UseRows;

/// Shows where an account and those below it are used: the places with their counts at the
/// left, what stands in the selected one at the right.
class UsedWindow final : public CNxMiddleDialog {
    Q_OBJECT

  public:
    UsedWindow(std::string code, QWidget* parent);
    ~UsedWindow() override;

  protected:
    bool OnInitDialog() override;

  private:
    void buildControls();
    QLayout* buildPlaces();
    QLabel* makeLabel(const std::string& text);
    void showPlace(int place);

    std::string m_code;
    std::vector<UseSection> m_sections;
    std::unique_ptr<UseRows> m_rows;
    QListView* m_places = nullptr;
    CVCF1* m_grid = nullptr;
    QLabel* m_more = nullptr;
};

}  // namespace chengheng
