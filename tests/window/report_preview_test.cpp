#include "screen/report/report_preview.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QScrollBar>
#include <QSet>
#include <QSpinBox>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QWheelEvent>
#include <filesystem>
#include <fstream>
#include <optional>

#include "screen/report/CenRptSkill.h"
#include "screen/report/screen_report_printer.h"
#include "session/host_messages.h"
#include "tests/support/recording_messages.h"
#include "tests/support/sample_report.h"
#include "tests/window/next_modal.h"
#include "tests/window/typing.h"

namespace {

using namespace chengheng;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

/// Opens a report's preview and works on it.
struct ReportPreviewTest : testing::Test {
    void preview(const Report& report, const std::function<void(ReportPreview&)>& work) {
        withReport(report, [&](CReport& engine) {
            ReportDocument document(engine);
            ReportPreview window(document, nullptr);
            showActive(window);
            work(window);
        });
    }
    void previewRows(std::size_t rows, const std::function<void(ReportPreview&)>& work) {
        Report report = sampleReport({10, 30});
        addNumberedRows(report, rows);
        preview(report, work);
    }
    static QAction* action(const QWidget& window, const QString& text) {
        for (QAction* found : window.findChildren<QAction*>())
            if (found->text() == text) return found;
        ADD_FAILURE() << "no action " << text.toStdString();
        return nullptr;
    }
    static PageView& view(const QWidget& window) { return *window.findChild<PageView*>(); }
    static QString read(const QWidget& window) {
        return view(window).widget()->accessibleDescription();
    }
    static bool hasLabel(const QWidget& window, const QString& text) {
        for (const QLabel* label : window.findChildren<QLabel*>())
            if (label->text() == text && label->isVisible()) return true;
        return false;
    }
    static void press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers with = {}) {
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &window, key,
                        with);
    }

    static void turnWheel(const QWidget& window, int steps, Qt::KeyboardModifiers with = {}) {
        QWidget* pages = view(window).viewport();
        const QPointF middle = pages->rect().center();
        QWheelEvent turning(middle, pages->mapToGlobal(middle), {}, {0, 120 * steps}, Qt::NoButton,
                            with, Qt::NoScrollPhase, false);
        QApplication::sendEvent(pages, &turning);
    }

    RecordingMessages messages;
    HostMessages installed{messages};
};

TEST_F(ReportPreviewTest, ShowsTheTitleAndTheFirstPageAsItReads) {
    previewRows(2, [](ReportPreview& window) {
        EXPECT_EQ(window.windowTitle(), "打印预览 - 结算方式一览表");
        EXPECT_THAT(read(window).toStdString(), HasSubstr("栏1\t栏2\n1-1\t1-2\n2-1\t2-2\n"));
        EXPECT_EQ(view(window).widget()->accessibleName(), "第1页");
        EXPECT_TRUE(hasLabel(window, "共 1 页"));
        for (const char* turning : {"首页", "上一页", "下一页", "末页"})
            EXPECT_FALSE(action(window, turning)->isEnabled()) << turning;
    });
}

TEST_F(ReportPreviewTest, TurnsPagesByItsCommands) {
    previewRows(100, [](ReportPreview& window) {
        EXPECT_TRUE(hasLabel(window, "共 3 页"));
        action(window, "下一页")->trigger();
        EXPECT_EQ(view(window).page(), 1U);
        EXPECT_EQ(window.findChild<QSpinBox*>()->value(), 2);
        action(window, "末页")->trigger();
        EXPECT_EQ(view(window).page(), 2U);
        EXPECT_THAT(read(window).toStdString(), HasSubstr("100-1\t100-2"));
        EXPECT_FALSE(action(window, "下一页")->isEnabled());
        action(window, "上一页")->trigger();
        EXPECT_EQ(view(window).page(), 1U);
        action(window, "首页")->trigger();
        EXPECT_EQ(view(window).page(), 0U);
        window.findChild<QSpinBox*>()->setValue(3);
        EXPECT_EQ(view(window).page(), 2U);
    });
}

TEST_F(ReportPreviewTest, TurnsPagesByTheKeyboard) {
    previewRows(100, [](ReportPreview& window) {
        press(window, Qt::Key_PageDown);
        EXPECT_EQ(view(window).page(), 1U);
        press(window, Qt::Key_PageUp);
        EXPECT_EQ(view(window).page(), 0U);
        press(window, Qt::Key_PageUp);
        EXPECT_EQ(view(window).page(), 0U);
        press(window, Qt::Key_End);
        EXPECT_EQ(view(window).page(), 2U);
        press(window, Qt::Key_PageDown);
        EXPECT_EQ(view(window).page(), 2U);
        press(window, Qt::Key_Home);
        EXPECT_EQ(view(window).page(), 0U);
        press(window, Qt::Key_PageDown, Qt::ControlModifier);
        EXPECT_EQ(view(window).page(), 1U);
        press(window, Qt::Key_End, Qt::ControlModifier);
        EXPECT_EQ(view(window).page(), 2U);
    });
}

TEST_F(ReportPreviewTest, EnterLeadsFromAPageNumberToThatPageAndLeavesThePreviewOpen) {
    previewRows(100, [](ReportPreview& window) {
        auto* number = window.findChild<QSpinBox*>();
        number->setFocus();
        number->selectAll();
        press(window, Qt::Key_3);
        press(window, Qt::Key_Return);
        EXPECT_EQ(view(window).page(), 2U);
        EXPECT_TRUE(view(window).hasFocus());
        press(window, Qt::Key_Return);
        EXPECT_TRUE(window.isVisible());
    });
}

TEST_F(ReportPreviewTest, TabReachesEveryCommandThatEnterThenCarriesOut) {
    previewRows(100, [](ReportPreview& window) {
        window.resize(2000, 600);
        action(window, "下一页")->trigger();
        const auto* bar = window.findChild<QToolBar*>();
        QSet<QWidget*> reached;
        for (int step = 0; step < 30; ++step) {
            press(window, Qt::Key_Tab);
            reached.insert(QApplication::focusWidget());
        }
        for (QAction* each : bar->actions()) {
            if (qobject_cast<QToolButton*>(bar->widgetForAction(each)) == nullptr) continue;
            EXPECT_TRUE(reached.contains(bar->widgetForAction(each))) << each->text().toStdString();
        }
        bar->widgetForAction(action(window, "首页"))->setFocus();
        press(window, Qt::Key_Return);
        EXPECT_EQ(view(window).page(), 0U);
        bar->widgetForAction(action(window, "末页"))->setFocus();
        press(window, Qt::Key_Space);
        EXPECT_EQ(view(window).page(), 2U);
    });
}

TEST_F(ReportPreviewTest, KeysOfItsCommandsWorkHoweverNarrowItIs) {
    previewRows(1, [](ReportPreview& window) {
        window.resize(300, 600);
        auto* zoom = window.findChild<QComboBox*>();
        zoom->setCurrentText("100%");
        press(window, Qt::Key_Plus, Qt::ControlModifier);
        EXPECT_EQ(zoom->currentText(), "125%");
        const NextModal asking([](QWidget& box) {
            EXPECT_TRUE(qobject_cast<QPrintDialog*>(&box));
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        press(window, Qt::Key_P, Qt::AltModifier);
        EXPECT_TRUE(asking.hasCome());
    });
    previewRows(1, [](ReportPreview& window) {
        window.resize(300, 600);
        press(window, Qt::Key_C, Qt::AltModifier);
        EXPECT_FALSE(window.isVisible());
    });
}

TEST_F(ReportPreviewTest, ScrollsALargePageToItsEndBeforeItTurns) {
    previewRows(100, [](ReportPreview& window) {
        window.findChild<QComboBox*>()->setCurrentText("200%");
        press(window, Qt::Key_PageDown);
        EXPECT_EQ(view(window).page(), 0U);
        EXPECT_GT(view(window).verticalScrollBar()->value(), 0);
        for (int times = 0; times < 6; ++times) press(window, Qt::Key_PageDown);
        EXPECT_GE(view(window).page(), 1U);
    });
}

TEST_F(ReportPreviewTest, TheWheelTurnsAtTheEdgeOfAPageAndEnlargesWithCtrl) {
    previewRows(100, [](ReportPreview& window) {
        turnWheel(window, -1);
        EXPECT_EQ(view(window).page(), 1U);
        turnWheel(window, 1);
        EXPECT_EQ(view(window).page(), 0U);
        auto* zoom = window.findChild<QComboBox*>();
        zoom->setCurrentText("150%");
        turnWheel(window, -1);
        EXPECT_EQ(view(window).page(), 0U) << "the page goes on below";
        turnWheel(window, 1, Qt::ControlModifier);
        EXPECT_EQ(zoom->currentText(), "200%");
        turnWheel(window, -1, Qt::ControlModifier);
        EXPECT_EQ(zoom->currentText(), "150%");
        action(window, "下一页")->trigger();
        turnWheel(window, 1);
        EXPECT_EQ(view(window).page(), 0U);
        const QScrollBar* bar = view(window).verticalScrollBar();
        EXPECT_EQ(bar->value(), bar->maximum()) << "back at the end of the page before";
    });
}

TEST_F(ReportPreviewTest, EnlargesByChoiceAndByKey) {
    previewRows(10, [](ReportPreview& window) {
        auto* zoom = window.findChild<QComboBox*>();
        EXPECT_EQ(zoom->currentText(), "整页");
        EXPECT_EQ(view(window).fit(), PageFit::whole);
        zoom->setCurrentText("150%");
        EXPECT_DOUBLE_EQ(view(window).shownFactor(), 1.5);
        action(window, "放大")->trigger();
        EXPECT_EQ(zoom->currentText(), "200%");
        action(window, "缩小")->trigger();
        action(window, "缩小")->trigger();
        EXPECT_EQ(zoom->currentText(), "125%");
        zoom->setCurrentText("页宽");
        EXPECT_EQ(view(window).fit(), PageFit::width);
        EXPECT_FALSE(view(window).horizontalScrollBar()->isVisible());
        for (int times = 0; times < 20; ++times) action(window, "放大")->trigger();
        EXPECT_EQ(zoom->currentText(), "400%");
        for (int times = 0; times < 20; ++times) action(window, "缩小")->trigger();
        EXPECT_EQ(zoom->currentText(), "25%");
    });
}

TEST_F(ReportPreviewTest, ClosesByEscapeAndByItsCommand) {
    previewRows(1, [](ReportPreview& window) {
        press(window, Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible());
    });
    previewRows(1, [](ReportPreview& window) {
        action(window, "关闭(&C)")->trigger();
        EXPECT_FALSE(window.isVisible());
    });
}

TEST_F(ReportPreviewTest, ShowsTheFirstPageOfFiftyThousandRowsAtOnceAndCountsThePagesMeanwhile) {
    Report report = sampleReport({10, 10});
    for (int row = 0; row < 50'000; ++row)
        report.addRow({std::to_string(row), "长的名称要分成几行才放得下的那一种科目"});
    preview(report, [&](ReportPreview& window) {
        EXPECT_THAT(read(window).toStdString(), HasSubstr("0\t"));
        EXPECT_TRUE(window.findChild<QProgressBar*>()->isVisible());
        int answers = 0;
        for (; window.findChild<QProgressBar*>()->isVisible(); ++answers)
            QApplication::processEvents(QEventLoop::AllEvents, 1);
        EXPECT_GT(answers, 10) << "the window was silent for too long";
        EXPECT_GT(window.findChild<QSpinBox*>()->maximum(), 1000);
        action(window, "末页")->trigger();
        EXPECT_THAT(read(window).toStdString(), HasSubstr("49999\t"));
    });
}

TEST_F(ReportPreviewTest, StopsLayingOutWhenTheOperatorWantsIt) {
    Report report = sampleReport({10});
    addNumberedRows(report, 50'000);
    preview(report, [](ReportPreview& window) {
        auto* stop = window.findChild<QPushButton*>();
        ASSERT_TRUE(stop->isVisible());
        QTest::mouseClick(stop, Qt::LeftButton);
        EXPECT_FALSE(stop->isVisible());
        const auto labels = window.findChildren<QLabel*>();
        EXPECT_TRUE(std::ranges::any_of(labels, [](const QLabel* label) {
            return label->text().startsWith("已停止排版,只显示前 ");
        }));
        const int pages = window.findChild<QSpinBox*>()->maximum();
        QApplication::processEvents();
        EXPECT_EQ(window.findChild<QSpinBox*>()->maximum(), pages);
        EXPECT_THAT(read(window).toStdString(), HasSubstr("第1页 共…页"));
    });
}

TEST_F(ReportPreviewTest, ExportsToAFileChosenByTheOperator) {
    previewRows(3, [this](ReportPreview& window) {
        const std::string path = freshFolder() + "/list.csv";
        {
            const NextModal choosing([&](QWidget& box) {
                auto* dialog = qobject_cast<QFileDialog*>(&box);
                ASSERT_TRUE(dialog);
                EXPECT_THAT(dialog->selectedFiles().value(0).toStdString(),
                            HasSubstr("结算方式一览表"));
                dialog->selectFile(QString::fromStdString(path));
                QMetaObject::invokeMethod(dialog, "accept");
            });
            action(window, "导出CSV")->trigger();
        }
        std::ifstream file(path);
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        EXPECT_EQ(text, "\xEF\xBB\xBF栏1,栏2\r\n1-1,1-2\r\n2-1,2-2\r\n3-1,3-2\r\n");
        EXPECT_TRUE(hasLabel(window, QString::fromStdString("已导出到“" + path + "”。")));
        EXPECT_THAT(messages.texts(), IsEmpty());
    });
}

TEST_F(ReportPreviewTest, OffersATitleAsANameThatEverySystemTakesAndAddsTheSuffix) {
    Report report = sampleReport({10});
    report.title = " 1/2月:\"甲\"表?";
    preview(report, [](ReportPreview& window) {
        const std::string folder = freshFolder();
        const NextModal choosing([&](QWidget& box) {
            auto* dialog = qobject_cast<QFileDialog*>(&box);
            ASSERT_TRUE(dialog);
            EXPECT_THAT(dialog->selectedFiles().value(0).toStdString(),
                        EndsWith("/1_2月__甲_表_.csv"));
            dialog->selectFile(QString::fromStdString(folder + "/list"));
            QMetaObject::invokeMethod(dialog, "accept");
        });
        action(window, "导出CSV")->trigger();
        EXPECT_TRUE(std::filesystem::exists(folder + "/list.csv"));
    });
}

TEST_F(ReportPreviewTest, WritesNothingWhenTheChoiceOfAFileIsGivenUp) {
    previewRows(3, [](ReportPreview& window) {
        const NextModal choosing([](QWidget& box) { box.close(); });
        action(window, "导出PDF")->trigger();
        EXPECT_FALSE(hasLabel(window, "导出已取消,没有写入文件。"));
    });
}

TEST_F(ReportPreviewTest, ShowsHowFarALongExportIsAndLeavesNoFileWhenItIsCancelled) {
    previewRows(20'000, [this](ReportPreview& window) {
        const std::string folder = freshFolder();
        std::optional<NextModal> progress;
        const NextModal choosing([&](QWidget& box) {
            auto* dialog = qobject_cast<QFileDialog*>(&box);
            ASSERT_TRUE(dialog);
            dialog->selectFile(QString::fromStdString(folder + "/list.pdf"));
            QMetaObject::invokeMethod(dialog, "accept");
            progress.emplace([](QWidget& shown) {
                EXPECT_TRUE(qobject_cast<QProgressDialog*>(&shown));
                QTest::mouseClick(shown.findChild<QPushButton*>(), Qt::LeftButton);
            });
        });
        action(window, "导出PDF")->trigger();
        EXPECT_TRUE(progress && progress->hasCome());
        EXPECT_TRUE(std::filesystem::is_empty(folder));
        EXPECT_TRUE(hasLabel(window, "导出已取消,没有写入文件。"));
        EXPECT_THAT(messages.texts(), IsEmpty());
    });
}

TEST_F(ReportPreviewTest, TellsWhyAFileCouldNotBeWritten) {
    for (const char* command : {"导出PDF", "导出XLSX", "导出CSV"})
        previewRows(3, [&](ReportPreview& window) {
            const std::string folder = freshFolder();
            {
                const NextModal choosing([&](QWidget& box) {
                    auto* dialog = qobject_cast<QFileDialog*>(&box);
                    ASSERT_TRUE(dialog);
                    dialog->setDirectory(QString::fromStdString(folder));
                    dialog->selectFile("list.out");
                    std::filesystem::remove_all(folder);
                    QMetaObject::invokeMethod(dialog, "accept");
                });
                action(window, command)->trigger();
            }
            EXPECT_THAT(messages.onlyNotice().text, HasSubstr("所在的文件夹不存在")) << command;
            messages.forget();
        });
}

TEST_F(ReportPreviewTest, AsksForAPrinterAndPrintsNothingWhenThatIsGivenUp) {
    previewRows(3, [this](ReportPreview& window) {
        {
            const NextModal asking([](QWidget& box) {
                EXPECT_TRUE(qobject_cast<QPrintDialog*>(&box));
                QTest::keyClick(&box, Qt::Key_Escape);
            });
            action(window, "打印(&P)")->trigger();
        }
        EXPECT_TRUE(window.isVisible());
        EXPECT_THAT(messages.texts(), IsEmpty());
    });
}

TEST_F(ReportPreviewTest, ShowsThePaperThatWasPrintedOn) {
    previewRows(100, [this](ReportPreview& window) {
        action(window, "末页")->trigger();
        const std::size_t before = view(window).page();
        ASSERT_GT(before, 0U);
        const NextModal asking([](QWidget& box) {
            auto* dialog = qobject_cast<QPrintDialog*>(&box);
            ASSERT_TRUE(dialog);
            QPageLayout chosen = dialog->printer()->pageLayout();
            chosen.setPageSize(QPageSize(QPageSize::A2));
            dialog->printer()->setPageLayout(chosen);
            dialog->findChild<QLineEdit*>("filename")
                ->setText(QString::fromStdString(freshFolder() + "/printed.pdf"));
            QMetaObject::invokeMethod(dialog, "accept");
        });
        action(window, "打印(&P)")->trigger();
        EXPECT_LT(view(window).page(), before);
        EXPECT_EQ(window.findChild<QSpinBox*>()->maximum(),
                  static_cast<int>(view(window).page()) + 1);
        EXPECT_THAT(messages.texts(), IsEmpty());
    });
}

TEST_F(ReportPreviewTest, IsWhatTheEngineShowsInModeOne) {
    Report report = sampleReport({10});
    bool isShown = false;
    const NextModal looking([&](QWidget& box) {
        isShown = qobject_cast<ReportPreview*>(&box) != nullptr;
        box.close();
    });
    withReport(report, [](CReport& engine) { CenRptSkill(engine, 1, nullptr); });
    EXPECT_TRUE(isShown);
}

TEST_F(ReportPreviewTest, IsNotShownForAModeThatTheEngineDoesNotKnow) {
    withReport(sampleReport({10}), [](CReport& engine) { CenRptSkill(engine, 2, nullptr); });
    EXPECT_THAT(messages.texts(), IsEmpty());
}

TEST_F(ReportPreviewTest, IsNotShownWithABrokenLayoutFile) {
    const OwnLayout layout("rpn 1\n[page\n");
    ScreenReportPrinter().preview(sampleReport({10}));
    EXPECT_THAT(messages.onlyNotice().text, HasSubstr("第2行有误:“[page”缺少右方括号"));
}

}  // namespace
