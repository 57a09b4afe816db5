#include "sheets/xlsx/xml_stream.h"

#include <expat.h>
#include <fmt/format.h>

#include <new>

namespace chengheng {
namespace {

constexpr std::size_t deepest = 64;
constexpr std::size_t longestSign = 1U << 20U;

std::string_view localName(const char* name) {
    const std::string_view whole(name);
    const std::size_t colon = whole.rfind(':');
    return colon == std::string_view::npos ? whole : whole.substr(colon + 1);
}

}  // namespace

std::optional<std::string_view> XmlAttributes::find(std::string_view name) const {
    for (const char* const* pair = m_pairs; *pair != nullptr; pair += 2)
        if (localName(pair[0]) == name) return pair[1];
    return std::nullopt;
}

std::string_view XmlAttributes::operator[](std::string_view name) const {
    return find(name).value_or(std::string_view());
}

/// What the parser calls. Nothing is told any more once the reading has ended.
struct XmlStream::Callbacks {
    static XmlStream* streamOf(void* user) {
        auto* stream = static_cast<XmlStream*>(user);
        stream->m_sinceLastSign = 0;
        const bool hasEnded = stream->m_handler.failure() || !stream->m_fault.empty();
        return hasEnded ? nullptr : stream;
    }
    static void start(void* user, const char* name, const char** attributes) {
        XmlStream* const stream = streamOf(user);
        if (stream == nullptr) return;
        if (++stream->m_depth > deepest) return stream->refuse("elements nested too deeply");
        stream->m_handler.start(localName(name), XmlAttributes(attributes));
    }
    static void end(void* user, const char* name) {
        XmlStream* const stream = streamOf(user);
        if (stream == nullptr) return;
        --stream->m_depth;
        stream->m_handler.end(localName(name));
    }
    static void text(void* user, const char* piece, int size) {
        XmlStream* const stream = streamOf(user);
        if (stream == nullptr) return;
        stream->m_handler.text({piece, static_cast<std::size_t>(size)});
    }
    static void other(void* user, const char*, int) { static_cast<void>(streamOf(user)); }
    static void documentType(void* user, const char*, const char*, const char*, int) {
        if (XmlStream* const stream = streamOf(user)) stream->refuse("has a document type");
    }
};

XmlStream::XmlStream(XmlHandler& handler)
    : m_handler(handler), m_parser(XML_ParserCreate(nullptr)) {
    if (m_parser == nullptr) throw std::bad_alloc();
    XML_SetUserData(m_parser, this);
    XML_SetElementHandler(m_parser, Callbacks::start, Callbacks::end);
    XML_SetCharacterDataHandler(m_parser, Callbacks::text);
    XML_SetDefaultHandler(m_parser, Callbacks::other);
    XML_SetStartDoctypeDeclHandler(m_parser, Callbacks::documentType);
}

XmlStream::~XmlStream() { XML_ParserFree(m_parser); }

void XmlStream::refuse(const char* fault) {
    m_fault = fault;
    XML_StopParser(m_parser, XML_FALSE);
}

bool XmlStream::parse(std::string_view piece, bool isLast) {
    m_sinceLastSign += piece.size();
    const int size = static_cast<int>(piece.size());
    const bool isRead = XML_Parse(m_parser, piece.data(), size, isLast) == XML_STATUS_OK;
    if (m_handler.failure() || !m_fault.empty()) return false;
    if (!isRead)
        m_fault = fmt::format("line {}: {}", XML_GetCurrentLineNumber(m_parser),
                              XML_ErrorString(XML_GetErrorCode(m_parser)));
    else if (m_sinceLastSign > longestSign)
        m_fault = "a sign without end";
    return m_fault.empty();
}

}  // namespace chengheng
