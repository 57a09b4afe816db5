#pragma once

#include <cmath>
#include <cstdint>

namespace chengheng {

/// A sum of amounts that does not depend on their order or number.
///
/// Amounts with no more decimals than `scale` has zeros are counted in whole units of the last
/// decimal: 0.10 + 0.20 - 0.30 is zero, and a thousand books of 4e12 add up to the cent.
/// Others, and those too large to be told to the last decimal, are summed in doubles that
/// carry along what each addition loses.
template <std::int64_t scale>
class ExactSum {
  public:
    void add(double amount) {
        if (amount == 0) return;
        const double scaled = amount * static_cast<double>(scale);
        if (std::fabs(scaled) < largestExact) {
            const auto units = static_cast<std::int64_t>(scaled + (scaled < 0 ? -0.5 : 0.5));
            if (static_cast<double>(units) / static_cast<double>(scale) == amount) {
                m_units += units;
                return;
            }
        }
        addInexact(amount);
    }
    void subtract(double amount) { add(-amount); }

    ExactSum& operator+=(const ExactSum& other) { return addSum(other, 1); }
    ExactSum& operator-=(const ExactSum& other) { return addSum(other, -1); }

    /// The double nearest to the sum.
    double value() const {
        const auto whole = static_cast<std::int64_t>(m_units);
        if (m_rest == 0 && m_lost == 0 && whole == m_units &&
            std::fabs(static_cast<double>(whole)) < largestExact)
            return static_cast<double>(whole) / static_cast<double>(scale);
        // Zero is not negative, whatever the rest adds.
        return static_cast<double>(static_cast<long double>(m_units) / scale + m_rest + m_lost) +
               0.0;
    }

  private:
    __extension__ using Units = __int128;

    /// Up to here a double holds every whole number.
    static constexpr double largestExact = 9007199254740992.0;

    void addInexact(double amount) {
        const double sum = m_rest + amount;
        // Beyond all numbers nothing is lost.
        if (std::isfinite(sum))
            m_lost += std::fabs(m_rest) >= std::fabs(amount) ? (m_rest - sum) + amount
                                                             : (amount - sum) + m_rest;
        m_rest = sum;
    }
    ExactSum& addSum(const ExactSum& other, int sign) {
        m_units += sign * other.m_units;
        if (other.m_rest != 0) addInexact(sign * other.m_rest);
        m_lost += sign * other.m_lost;
        return *this;
    }

    Units m_units = 0;
    double m_rest = 0;
    double m_lost = 0;
};

using MoneySum = ExactSum<100>;
using QuantitySum = ExactSum<100'000>;

}  // namespace chengheng
