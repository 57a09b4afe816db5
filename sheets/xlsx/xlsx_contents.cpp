#include "sheets/xlsx/xlsx_contents.h"

#include <algorithm>
#include <optional>

#include "sheets/sheet_limits.h"
#include "sheets/sheet_texts.h"

namespace chengheng {
namespace {

constexpr std::size_t mostEntries = 10'000;

struct Relationship {
    std::string id;
    std::string kind;  ///< the last word of its type
    std::string part;
};

/// Reads which other parts a part refers to.
class RelationshipsHandler : public XmlHandler {
  public:
    explicit RelationshipsHandler(std::string_view from) : m_from(from) {}

    void start(std::string_view name, const XmlAttributes& attributes) override {
        if (name != "Relationship" || attributes["TargetMode"] == "External") return;
        const std::string_view type = attributes["Type"];
        m_relationships.push_back({std::string(attributes["Id"]),
                                   std::string(type.substr(type.rfind('/') + 1)),
                                   partName(m_from, attributes["Target"])});
        if (m_relationships.size() > mostEntries) fail(damagedWorkbook("too many relationships"));
    }
    void end(std::string_view) override {}
    void text(std::string_view) override {}

    /// The part of a kind, or with an id; empty when there is none.
    std::string partOfKind(std::string_view kind) const {
        return find(&Relationship::kind, kind, "");
    }
    std::string sheetPart(std::string_view id) const {
        return find(&Relationship::id, id, "worksheet");
    }

  private:
    std::string find(std::string Relationship::*field, std::string_view value,
                     std::string_view kind) const {
        const auto found = std::ranges::find_if(m_relationships, [&](const Relationship& each) {
            return each.*field == value && (kind.empty() || each.kind == kind);
        });
        return found == m_relationships.end() ? std::string() : found->part;
    }

    std::string m_from;
    std::vector<Relationship> m_relationships;
};

/// Reads which sheets a workbook has.
class WorkbookHandler : public XmlHandler {
  public:
    struct Entry {
        std::string name;
        std::string id;
    };

    void start(std::string_view name, const XmlAttributes& attributes) override {
        m_isWorkbook = m_isWorkbook || name == "workbook";
        if (name == "workbookPr") {
            const std::string_view flag = attributes["date1904"];
            m_countsFrom1904 = flag == "1" || flag == "true";
        }
        const std::string_view state = attributes["state"];
        if (name != "sheet" || state == "hidden" || state == "veryHidden") return;
        m_visible.push_back({std::string(attributes["name"]), std::string(attributes["id"])});
        if (m_visible.size() > mostEntries) fail(damagedWorkbook("too many sheets"));
    }
    void end(std::string_view) override {}
    void text(std::string_view) override {}

    bool isWorkbook() const { return m_isWorkbook; }
    const std::vector<Entry>& visible() const { return m_visible; }
    bool countsFrom1904() const { return m_countsFrom1904; }

  private:
    std::vector<Entry> m_visible;
    bool m_isWorkbook = false;
    bool m_countsFrom1904 = false;
};

std::string relationshipsPartOf(const std::string& part) {
    const std::size_t slash = part.rfind('/');
    const std::size_t nameAt = slash == std::string::npos ? 0 : slash + 1;
    return part.substr(0, nameAt) + "_rels/" + part.substr(nameAt) + ".rels";
}

std::string existing(const XlsxPackage& package, const std::string& part) {
    return !part.empty() && package.hasPart(part) ? part : std::string();
}

}  // namespace

std::string partName(std::string_view from, std::string_view target) {
    std::vector<std::string_view> folders;
    const auto enter = [&folders](std::string_view path) {
        while (!path.empty()) {
            const std::string_view step = path.substr(0, path.find('/'));
            path.remove_prefix(std::min(step.size() + 1, path.size()));
            if (step == ".." && !folders.empty()) folders.pop_back();
            if (!step.empty() && step != "." && step != "..") folders.push_back(step);
        }
    };
    if (!target.starts_with('/')) enter(from.substr(0, from.rfind('/') + 1));
    enter(target);
    std::string name;
    for (const std::string_view folder : folders) (name += name.empty() ? "" : "/") += folder;
    return name;
}

std::optional<SheetFailure> findContents(XlsxPackage& package, XlsxContents& contents) {
    const SheetFailure foreign{.reason = sheet_texts::notWorkbook};
    RelationshipsHandler top("");
    if (!package.hasPart("_rels/.rels")) return foreign;
    if (std::optional<SheetFailure> failure = package.read("_rels/.rels", top)) return failure;
    const std::string workbookPart = top.partOfKind("officeDocument");
    if (!workbookPart.ends_with(".xml") || !package.hasPart(workbookPart)) return foreign;
    WorkbookHandler workbook;
    if (std::optional<SheetFailure> failure = package.read(workbookPart, workbook)) return failure;
    if (!workbook.isWorkbook()) return foreign;
    RelationshipsHandler parts(workbookPart);
    const std::string partsPart = relationshipsPartOf(workbookPart);
    if (!package.hasPart(partsPart)) return foreign;
    if (std::optional<SheetFailure> failure = package.read(partsPart, parts)) return failure;
    contents.countsFrom1904 = workbook.countsFrom1904();
    contents.stringsPart = existing(package, parts.partOfKind("sharedStrings"));
    contents.stylesPart = existing(package, parts.partOfKind("styles"));
    for (const auto& [name, id] : workbook.visible()) {
        contents.sheetName = name;
        contents.sheetPart = parts.sheetPart(id);
        if (!contents.sheetPart.empty()) return std::nullopt;
    }
    return SheetFailure{.reason = sheet_texts::noVisibleSheet};
}

}  // namespace chengheng
