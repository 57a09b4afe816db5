#include "screen/CBalanceTableDlg.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>

#include "screen/screen_texts.h"

namespace {

namespace texts = chengheng::screen_texts;

constexpr int classCharacters = 44;
constexpr int classLines = 13;
constexpr int tabCharacters = 18;

struct Field {
    const char* name;
    const char* caption;
    int row;
    int column;
    int span;
    int lines;
};

constexpr Field fields[] = {
    {"debitClasses", texts::debitClasses, 1, 0, 1, classLines},
    {"creditClasses", texts::creditClasses, 1, 1, 1, classLines},
    {"debitTotal", texts::debitTotal, 2, 0, 1, 1},
    {"creditTotal", texts::creditTotal, 2, 1, 1, 1},
    {"result", texts::balanceResult, 3, 0, 2, 1},
};

/// A text that is read, selected and copied, but not changed.
QPlainTextEdit* makeField(const Field& field, const std::string& text, QWidget* parent) {
    auto* made = new QPlainTextEdit(QString::fromStdString(text), parent);
    made->setObjectName(QString::fromUtf8(field.name));
    made->setAccessibleName(QString::fromUtf8(field.caption));
    made->setReadOnly(true);
    made->setTabChangesFocus(true);
    made->setLineWrapMode(QPlainTextEdit::NoWrap);
    const QFontMetrics metrics = made->fontMetrics();
    made->setTabStopDistance(tabCharacters * metrics.horizontalAdvance(QLatin1Char('0')));
    const int around =
        2 * made->frameWidth() + 2 * static_cast<int>(made->document()->documentMargin());
    const int height = field.lines * metrics.lineSpacing() + around;
    if (field.lines == 1) {
        made->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        made->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        made->setFixedHeight(height);
    } else {
        made->setMinimumHeight(height);
    }
    made->setMinimumWidth(classCharacters * metrics.horizontalAdvance(QLatin1Char('0')));
    return made;
}

}  // namespace

CBalanceTableDlg::CBalanceTableDlg(const std::array<const std::string*, 5>& shown, bool hasCauses,
                                   QWidget* parent)
    : CNxMiddleDialog(parent) {
    setWindowTitle(QString::fromUtf8(texts::balanceTitle));
    buildControls(shown, hasCauses);
}

void CBalanceTableDlg::buildControls(const std::array<const std::string*, 5>& shown,
                                     bool hasCauses) {
    auto* grid = new QGridLayout(this);
    std::size_t place = 0;
    for (const Field& field : fields) {
        if (field.row == 1)
            grid->addWidget(new QLabel(QString::fromUtf8(field.caption), this), 0, field.column);
        grid->addWidget(makeField(field, *shown[place++], this), field.row, field.column, 1,
                        field.span);
    }
    auto* buttons = new QDialogButtonBox(this);
    auto* confirm =
        buttons->addButton(QString::fromUtf8(texts::confirm), QDialogButtonBox::AcceptRole);
    confirm->setDefault(true);
    confirm->setFocus();
    connect(buttons, &QDialogButtonBox::accepted, this, [this] { EndDialog(Accepted); });
    if (hasCauses) {
        auto* causes = buttons->addButton(QString::fromUtf8(texts::balanceCauses),
                                          QDialogButtonBox::ActionRole);
        connect(causes, &QPushButton::clicked, this, [this] { EndDialog(causesWanted); });
    }
    grid->addWidget(buttons, 4, 0, 1, 2);
}
