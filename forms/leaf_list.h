#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace chengheng {

/// An entry of the list at the left of a window: a record by its id, and how it reads.
struct Leaf {
    int id = 0;
    std::string text;
    std::string order = {};  ///< where it stands among the others; empty: as it came

    bool operator==(const Leaf&) const = default;
};

/// All leaves in their order, and those of them that a filter shows. Rows count shown leaves.
/// The filter is offered from so many leaves on; with fewer all are shown.
class LeafList {
  public:
    static constexpr std::size_t filterOfferedFrom = 20;

    std::span<const Leaf> all() const { return m_leaves; }
    /// Null when no leaf has the id.
    const Leaf* find(int id) const;

    void assign(std::vector<Leaf> leaves);
    /// Puts a leaf where its order says, else at the end, or in the place of the one with its id.
    void put(Leaf leaf);
    void remove(int id);

    bool offersFilter() const { return m_leaves.size() >= filterOfferedFrom; }
    const std::string& filter() const { return m_filter; }
    /// Shows the leaves that hold the text, in any case; blanks around it count for nothing.
    void setFilter(std::string text);
    /// What leaves are found by besides their text, where plain letters are looked for.
    void findBy(std::function<std::string(const Leaf&)> initials);

    int rowCount() const { return static_cast<int>(m_shown.size()); }
    const Leaf& atRow(int row) const { return m_leaves[m_shown[static_cast<std::size_t>(row)]]; }
    /// -1 when the leaf is not shown.
    int rowOf(int id) const;
    /// Id of the first leaf shown; 0 when none is.
    int firstShown() const { return m_shown.empty() ? 0 : atRow(0).id; }
    /// Id of the leaf shown after this one, else of the one before it, 0 when there is neither; of
    /// one that is not shown itself the first one shown.
    int neighbourOf(int id) const;

    /// Another number after each change of what is shown.
    unsigned revision() const { return m_revision; }

  private:
    void showMatching();
    void readInitials();

    std::vector<Leaf> m_leaves;
    std::vector<std::size_t> m_shown;  ///< places in m_leaves
    std::string m_filter;
    std::function<std::string(const Leaf&)> m_initialsOf;
    std::vector<std::string> m_initials;  ///< of all leaves; empty until they are needed
    unsigned m_revision = 0;
};

}  // namespace chengheng
