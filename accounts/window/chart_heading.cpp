#include "accounts/window/chart_heading.h"

#include <fmt/format.h>

#include <QHBoxLayout>
#include <QLabel>

#include "accounts/screen/chart_texts.h"
#include "screen/fonts.h"
#include "screen/search_bar.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

constexpr int headingPixels = 12;
constexpr int headingSpacing = 24;
constexpr int headingMargin = 8;

}  // namespace

ChartHeading::ChartHeading(QWidget* parent)
    : QWidget(parent),
      m_levelLengths(new QLabel(this)),
      m_accountCount(new QLabel(this)),
      m_searchBar(
          new SearchBar(shown(chart_texts::searchLabel), shown(chart_texts::searchHint), this)) {
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(headingMargin / 2, headingMargin, headingMargin / 2, headingMargin);
    line->setSpacing(headingSpacing);
    for (QLabel* label : {m_levelLengths, m_accountCount}) {
        label->setFont(pictureFont(headingPixels));
        label->setTextFormat(Qt::PlainText);
        line->addWidget(label);
    }
    line->addStretch(1);
    line->addWidget(m_searchBar);
}

void ChartHeading::showFacts(const std::string& levelPattern, const std::string& count) {
    m_levelLengths->setText(shown(fmt::format(chart_texts::levelLengths, levelPattern)));
    m_accountCount->setText(shown(fmt::format(chart_texts::accountCount, count)));
}

}  // namespace chengheng
