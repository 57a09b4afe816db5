#include "sheets/xlsx/xlsx_strings.h"

#include <utility>

#include "sheets/sheet_budget.h"
#include "sheets/xlsx/xlsx_escapes.h"

namespace chengheng {
namespace {

class StringsHandler : public XmlHandler {
  public:
    void start(std::string_view name, const XmlAttributes&) override {
        if (name == "si") m_gatherer.clear();
        m_gatherer.start(name);
    }
    void end(std::string_view name) override {
        m_gatherer.end(name);
        if (name != "si") return;
        m_strings.push_back(m_gatherer.take());
        if (std::optional<SheetFailure> failure = m_budget.take(1, 0)) fail(*failure);
    }
    void text(std::string_view piece) override {
        m_gatherer.text(piece);
        if (std::optional<SheetFailure> failure = m_budget.take(0, piece.size())) fail(*failure);
    }

    std::vector<std::string> takeStrings() { return std::move(m_strings); }

  private:
    XlsxTextGatherer m_gatherer;
    SheetBudget m_budget;
    std::vector<std::string> m_strings;
};

}  // namespace

void XlsxTextGatherer::start(std::string_view name) {
    if (name == "t") m_isInText = true;
    if (name == "rPh") m_isInPronunciation = true;
}

void XlsxTextGatherer::end(std::string_view name) {
    if (name == "t") m_isInText = false;
    if (name == "rPh") m_isInPronunciation = false;
}

void XlsxTextGatherer::text(std::string_view piece) {
    if (m_isInText && !m_isInPronunciation) m_text += piece;
}

std::string XlsxTextGatherer::take() const { return unescapedFromXlsx(m_text); }

std::optional<SheetFailure> XlsxStrings::read(XlsxPackage& package, const std::string& part) {
    StringsHandler strings;
    if (std::optional<SheetFailure> failure = package.read(part, strings)) return failure;
    m_strings = strings.takeStrings();
    return std::nullopt;
}

const std::string* XlsxStrings::find(std::size_t number) const {
    return number < m_strings.size() ? &m_strings[number] : nullptr;
}

}  // namespace chengheng
