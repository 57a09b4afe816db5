#include "books/parameters/books_parameters.h"

#include "base/values/text.h"

namespace chengheng {

BooksParameters parametersOf(const _zAccountMInfo& record) {
    return {record.sName, record.sCompany, record.bFgn != 0, record.sCodeLen, record.dtStart.month};
}

_zAccountMInfo recordWith(const BooksParameters& parameters, const _zAccountMInfo& base) {
    _zAccountMInfo record = base;
    const BooksParameters before = parametersOf(base);
    if (parameters.name != before.name) record.sName = withoutBlanksAround(parameters.name);
    if (parameters.company != before.company)
        record.sCompany = withoutBlanksAround(parameters.company);
    if (parameters.hasForeignCurrency != before.hasForeignCurrency)
        record.bFgn = parameters.hasForeignCurrency ? 1 : 0;
    if (parameters.levelPattern != before.levelPattern)
        record.sCodeLen = withoutBlanksAround(parameters.levelPattern);
    if (parameters.startMonth != before.startMonth)
        record.dtStart = {static_cast<std::int16_t>(base.lYear),
                          static_cast<std::uint8_t>(parameters.startMonth), 1};
    return record;
}

BooksParameters typedOver(const BooksParameters& now, const BooksParameters& typed,
                          const BooksParameters& before) {
    BooksParameters result = now;
    const auto keepTyped = [&](auto field) {
        if (typed.*field != before.*field) result.*field = typed.*field;
    };
    keepTyped(&BooksParameters::name);
    keepTyped(&BooksParameters::company);
    keepTyped(&BooksParameters::hasForeignCurrency);
    keepTyped(&BooksParameters::levelPattern);
    keepTyped(&BooksParameters::startMonth);
    return result;
}

}  // namespace chengheng
