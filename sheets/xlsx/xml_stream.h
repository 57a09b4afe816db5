#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "sheets/sheet_failure.h"

struct XML_ParserStruct;

namespace chengheng {

/// The attributes of an element.
class XmlAttributes {
  public:
    explicit XmlAttributes(const char* const* pairs) : m_pairs(pairs) {}
    /// The value of an attribute, whatever the prefix of its name.
    std::optional<std::string_view> find(std::string_view name) const;
    /// The same, with the empty text for none.
    std::string_view operator[](std::string_view name) const;

  private:
    const char* const* m_pairs;
};

/// Is told what an XML text consists of, in its order. Names come without their prefix.
class XmlHandler {
  public:
    virtual ~XmlHandler() = default;
    virtual void start(std::string_view name, const XmlAttributes& attributes) = 0;
    virtual void end(std::string_view name) = 0;
    /// A piece of text; one text may come in several.
    virtual void text(std::string_view piece) = 0;

    const std::optional<SheetFailure>& failure() const { return m_failure; }

  protected:
    /// Ends the reading.
    void fail(SheetFailure failure) { m_failure = std::move(failure); }
    bool hasFailed() const { return m_failure.has_value(); }

  private:
    std::optional<SheetFailure> m_failure;
};

/// Reads an XML text piece by piece without keeping it. Refuses what can be made to exhaust
/// the machine: document types, deep nesting, signs without end.
class XmlStream {
  public:
    explicit XmlStream(XmlHandler& handler);
    ~XmlStream();
    XmlStream(const XmlStream&) = delete;
    XmlStream& operator=(const XmlStream&) = delete;

    /// False when the reading has ended: by the handler, or by a text that is no XML.
    bool feed(std::string_view piece) { return parse(piece, false); }
    bool finish() { return parse({}, true); }
    /// What is wrong with the text; empty when the handler ended the reading.
    const std::string& fault() const { return m_fault; }

  private:
    struct Callbacks;
    bool parse(std::string_view piece, bool isLast);
    void refuse(const char* fault);

    XmlHandler& m_handler;
    XML_ParserStruct* m_parser;
    std::size_t m_depth = 0;
    std::size_t m_sinceLastSign = 0;
    std::string m_fault;
};

}  // namespace chengheng
