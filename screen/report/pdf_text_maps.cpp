#include "screen/report/pdf_text_maps.h"

#include <exception>
#include <memory>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>

namespace chengheng {
namespace {

using Change = std::function<std::string(std::string_view)>;

std::string_view viewOf(Buffer& bytes) {
    return {reinterpret_cast<const char*>(bytes.getBuffer()), bytes.getSize()};
}

void changeMaps(QPDF& pdf, const Change& change) {
    for (QPDFObjectHandle& object : pdf.getAllObjects()) {
        if (!object.isDictionary() || !object.hasKey("/ToUnicode")) continue;
        QPDFObjectHandle map = object.getKey("/ToUnicode");
        if (!map.isStream()) continue;
        map.replaceStreamData(change(viewOf(*map.getStreamData())), QPDFObjectHandle::newNull(),
                              QPDFObjectHandle::newNull());
    }
}

}  // namespace

// The library does not tell when a file does not take its last bytes, so it writes into memory.
std::string changeTextMaps(std::string& pdf, const Change& change) {
    try {
        QPDF document;
        document.setSuppressWarnings(true);
        document.processMemoryFile("", pdf.data(), pdf.size());
        changeMaps(document, change);
        QPDFWriter writer(document);
        writer.setOutputMemory();
        writer.write();
        if (document.anyWarnings()) return document.getWarnings().front().what();
        pdf = viewOf(*writer.getBufferSharedPointer());
    } catch (const std::exception& error) {
        return error.what();
    }
    return {};
}

}  // namespace chengheng
