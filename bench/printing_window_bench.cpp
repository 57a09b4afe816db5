// Long reports against short ones: ten times the rows are to cost ten times as much.

#include <QApplication>
#include <QTemporaryDir>
#include <functional>
#include <string>

#include "base/system/this_process.h"
#include "bench/timing.h"
#include "report/engine/report_run.h"
#include "screen/application.h"
#include "screen/report/pdf_writing.h"
#include "screen/report/report_preview.h"

namespace {

using bench::require;
using chengheng::Alignment;
using chengheng::Report;
using chengheng::ReportDocument;

constexpr int shortRows = 5'000;
constexpr int times = 10;
constexpr int longRows = shortRows * times;

Report chartOf(int accounts) {
    Report report;
    report.title = "会计科目一览表";
    report.columns = {{"级次", "", 6, Alignment::center},
                      {"科目编码", "", 16, Alignment::left},
                      {"科目名称", "", 30, Alignment::left},
                      {"辅助核算", "", 12, Alignment::left},
                      {"期初余额", "", 18, Alignment::right}};
    for (int account = 0; account < accounts; ++account)
        report.addRow({std::to_string(account % 4 + 1), std::to_string(1'000'000'000 + account),
                       "应收账款第" + std::to_string(100'000 + account) + "号客户", "单位往来",
                       std::to_string(100 + account % 900) + ",123.45"});
    return report;
}

void withDocument(const Report& report, const std::function<void(ReportDocument&)>& work) {
    const auto refusal = chengheng::runReport(report, [&](CReport& engine) {
        ReportDocument document(engine);
        work(document);
    });
    require(!refusal, "making the report");
}

void layOut(const Report& report) {
    withDocument(report, [](ReportDocument& document) {
        require(document.layOutAll([](std::size_t, std::size_t) { return true; }), "laying out");
    });
}

void writePages(const Report& report, const std::string& path) {
    withDocument(report, [&](ReportDocument& document) {
        const auto everyPageGoesOn = [](std::size_t, std::size_t) { return true; };
        require(chengheng::writePdf(document, path, chengheng::Overwrite::replace, everyPageGoesOn)
                    .isDone(),
                "writing the pages");
    });
}

void showFirstPage(const Report& report) {
    withDocument(report, [](ReportDocument& document) {
        chengheng::ReportPreview preview(document, nullptr);
        preview.show();
        require(!preview.grab().isNull(), "painting the preview");
    });
}

}  // namespace

int main(int count, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The layouts that the program brings, whatever the user's own are.
    qputenv("CHENGHENG_HOME", QByteArray::fromStdString(chengheng::programFolder() + "/.."));
    QApplication application(count, arguments);
    chengheng::prepareApplication(application);
    const Report longChart = chartOf(longRows);
    const Report shortChart = chartOf(shortRows);
    const QTemporaryDir folder;
    const std::string path = folder.filePath("chart.pdf").toStdString();
    const auto tenTimes = [](const auto& work) {
        return [work] {
            for (int time = 0; time < times; ++time) work();
        };
    };
    const auto report = [&](const std::string& work, const auto& with, double target, int runs) {
        bench::reportTimes(
            work + " of " + std::to_string(longRows) + " rows, ten of " + std::to_string(shortRows),
            {.ours = [&] { with(longChart); }, .floor = tenTimes([&] { with(shortChart); })},
            target, runs);
    };
    report("layout", layOut, 1.2, 5);
    report("first page of the preview", showFirstPage, 1, 5);
    constexpr int fewRuns = 2;
    report(
        "PDF", [&](const Report& chart) { writePages(chart, path); }, 1.2, fewRuns);
}
