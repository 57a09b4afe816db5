#pragma once

#include <QWidget>

#include "currency/screen/rate_overview.h"
#include "screen/history/history_window.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;

namespace chengheng {
class RateGrid;
class RatePicture;

/// The rates of the chosen currency: which kind, which month, their year as a picture, their grid,
/// what there is to say about them, and an amount converted by the one in the current row.
class RatePanel final : public QWidget {
    Q_OBJECT

  public:
    /// Form and overview outlive the panel.
    RatePanel(const CurrencyForm& form, const RateOverview& overview, QWidget* parent = nullptr);

    /// Shows what the form has now; only what can be chosen.
    void showRates();
    void showOpenness();
    /// The amount of the converter in the current row, as the fields of the currency are now.
    void showConversion();
    /// Whether the keyboard is in its amount.
    bool isConverting() const;
    RateGrid& grid() { return *m_grid; }

  signals:
    void kindChosen(RateKind kind);
    void monthChosen(int month);
    void dayChosen(Date day);

  private:
    struct Place {
        std::int32_t currency = 0;
        RateKind kind = RateKind::fixed;
        int month = 0;

        bool operator==(const Place&) const = default;
    };
    Place placeNow() const;
    QRadioButton* addKind(RateKind kind, const char* caption, const char* name);

    QLayout* makeConverter();
    /// Of the current rate.
    std::optional<AskedHistory> askedHistory() const;

    const CurrencyForm& m_form;
    const RateOverview& m_overview;
    QRadioButton* m_fixed = nullptr;
    QRadioButton* m_floating = nullptr;
    QComboBox* m_month = nullptr;
    RatePicture* m_picture = nullptr;
    RateGrid* m_grid = nullptr;
    QLabel* m_line = nullptr;
    QLineEdit* m_amount = nullptr;
    QLabel* m_converted = nullptr;
    Place m_shown;
    bool m_isShowing = false;
};

}  // namespace chengheng
