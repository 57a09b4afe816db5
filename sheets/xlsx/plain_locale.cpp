#include "sheets/xlsx/plain_locale.h"

#include <new>

namespace chengheng {

PlainLocale::PlainLocale() : m_plain(newlocale(LC_ALL_MASK, "C", nullptr)) {
    if (m_plain == nullptr) throw std::bad_alloc();
    m_before = uselocale(m_plain);
}

PlainLocale::~PlainLocale() {
    uselocale(m_before);
    freelocale(m_plain);
}

}  // namespace chengheng
