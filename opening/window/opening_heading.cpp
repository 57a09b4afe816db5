#include "opening/window/opening_heading.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

#include "opening/sheet/opening_texts.h"
#include "opening/window/opening_look.h"
#include "screen/search_bar.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

constexpr QSize samplePixels(22, 14);
constexpr int modeCharacters = 12;

QWidget* colourSample(const QColor& colour, QWidget* parent) {
    auto* sample = new QFrame(parent);
    sample->setFrameStyle(QFrame::Box | QFrame::Plain);
    sample->setFixedSize(samplePixels);
    QPalette palette = sample->palette();
    palette.setColor(QPalette::Window, colour);
    sample->setPalette(palette);
    sample->setAutoFillBackground(true);
    return sample;
}

/// A colour and what it means.
QWidget* legendEntry(const char* text, const QColor& colour, QWidget* parent) {
    auto* entry = new QWidget(parent);
    auto* line = new QHBoxLayout(entry);
    line->setContentsMargins(opening_layout::spacing, 0, 0, 0);
    line->addWidget(colourSample(colour, entry));
    line->addWidget(new QLabel(shown(text), entry));
    return entry;
}

}  // namespace

OpeningHeading::OpeningHeading(QWidget* parent)
    : QWidget(parent),
      m_mode(new QLineEdit(this)),
      m_searchBar(new SearchBar(shown(opening_texts::searchLabel), shown(opening_texts::searchHint),
                                this)) {
    using namespace opening_layout;
    m_mode->setObjectName(QStringLiteral("mode"));
    m_mode->setAccessibleName(shown(opening_texts::mode));
    m_mode->setReadOnly(true);
    QPalette colours = m_mode->palette();
    colours.setColor(QPalette::Base, parent->palette().color(QPalette::Window));
    m_mode->setPalette(colours);
    m_mode->setFixedWidth(modeCharacters *
                          parent->fontMetrics().horizontalAdvance(QLatin1Char('0')));
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(margin / 2, margin, margin / 2, margin);
    line->addWidget(m_mode);
    const std::pair<const char*, QColor> legend[] = {
        {opening_texts::parentLegend, opening_colours::parent},
        {opening_texts::endLegend, opening_colours::endAccount},
        {opening_texts::auxiliaryLegend, opening_colours::auxiliary}};
    for (const auto& [text, colour] : legend) line->addWidget(legendEntry(text, colour, this));
    m_disagreeing =
        legendEntry(opening_texts::disagreeingLegend, opening_colours::disagreeing, this);
    m_disagreeing->setObjectName(QStringLiteral("disagreeing"));
    line->addWidget(m_disagreeing);
    line->addStretch(1);
    line->addWidget(m_searchBar);
}

void OpeningHeading::showMode(const char* text) {
    m_mode->setText(shown(text));
    m_mode->setVisible(!m_mode->text().isEmpty());
}

void OpeningHeading::showLayout(OpeningLayout layout) {
    m_disagreeing->setVisible(layout == OpeningLayout::midYear);
}

void OpeningHeading::setTabOrderAfter(QWidget& grid) {
    setTabOrder(&grid, &m_searchBar->field());
    setTabOrder(&m_searchBar->field(), m_mode);
}

}  // namespace chengheng
