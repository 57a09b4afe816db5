#pragma once

#include <QWidget>

#include "currency/currency_form.h"

class QComboBox;
class QRadioButton;

namespace chengheng {
class RateGrid;

/// The rates of the chosen currency: which kind, which month, and their grid.
class RatePanel final : public QWidget {
    Q_OBJECT

  public:
    /// The form outlives the panel.
    RatePanel(const CurrencyForm& form, QWidget* parent = nullptr);

    /// Shows what the form has now; only what can be chosen.
    void showRates();
    void showOpenness();
    RateGrid& grid() { return *m_grid; }

  signals:
    void kindChosen(RateKind kind);
    void monthChosen(int month);

  private:
    struct Place {
        std::int32_t currency = 0;
        RateKind kind = RateKind::fixed;
        int month = 0;

        bool operator==(const Place&) const = default;
    };
    Place placeNow() const;
    QRadioButton* addKind(RateKind kind, const char* caption, const char* name);

    const CurrencyForm& m_form;
    QRadioButton* m_fixed = nullptr;
    QRadioButton* m_floating = nullptr;
    QComboBox* m_month = nullptr;
    RateGrid* m_grid = nullptr;
    Place m_shown;
    bool m_isShowing = false;
};

}  // namespace chengheng
