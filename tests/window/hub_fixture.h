#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QTest>
#include <optional>
#include <string>

#include "data/access/CNbCwDB.h"
#include "data/lookups/CGetData.h"
#include "data/tables/books.h"
#include "session/host_globals.h"
#include "session/host_messages.h"
#include "setting/window/CNbCwSettingDlg.h"
#include "tests/support/recording_messages.h"

namespace chengheng {

/// A hub whose inside a test can reach.
class OpenHub : public CNbCwSettingDlg {
  public:
    using CNbCwSettingDlg::CNbCwSettingDlg;
    using CNbCwSettingDlg::m_pPicture;
    using CNbCwSettingDlg::OnCtlColor;

    QAbstractButton* region(int command) const {
        return findChild<QAbstractButton*>(QStringLiteral("command%1").arg(command));
    }
    /// Clicks where the region stands on the picture.
    void clickRegion(int command) {
        QTest::mouseClick(region(command), Qt::LeftButton);
        QCoreApplication::processEvents();
    }
    void showAndFocus() {
        show();
        activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(this));
    }
};

inline void closeOpeningBalances(QWidget& window) {
    EXPECT_EQ(window.windowTitle(), "期初余额录入");
    window.close();
}

inline void closeCurrencies(QWidget& window) {
    EXPECT_EQ(window.windowTitle(), "汇率管理");
    window.close();
}

inline void closePresets(QWidget& window) {
    EXPECT_EQ(window.windowTitle(), "凭证类别预置");
    window.close();
}

/// An empty set of books in memory with foreign currency, no voucher type, and 王芳 logged on,
/// who is supervisor; a recorded operator answers for the host.
class HubTest : public testing::Test {
  protected:
    void SetUp() override {
        NbCwDBInfo info;
        ASSERT_NE(m_database.DBOpen(info, ":memory:", "books", 0), 0)
            << m_database.lastStatus().detail;
        ASSERT_NE(m_database.DBSelect("books"), 0);
        m_parameters.bFgn = 1;
        CGetData::m_pzAccountMInfo = &m_parameters;
        run("INSERT INTO zAccountM (lId, dtStart, sCodeLen) VALUES(1, '2026-01-01', '4222')");
        run("INSERT INTO Users VALUES(5, 5, '王芳', 0, '')");
        logOn(1);
    }
    void TearDown() override { CGetData::m_pzAccountMInfo = nullptr; }

    void logOn(int manager, const std::string& argument = {}, const char* books = "books") {
        m_session.reset();
        run("UPDATE Users SET bManager = " + std::to_string(manager) + " WHERE lUserId = 5");
        m_session.emplace(SessionFacts{.database = &m_database,
                                       .databaseName = books,
                                       .setName = "恒源商贸有限公司",
                                       .launchArgument = argument,
                                       .logonUser = {5, 5, 5, manager, "王芳"},
                                       .logonTime = {{2026, 5, 31}, 9, 0, 0}});
    }
    void run(const std::string& batch) {
        ASSERT_NE(m_database.QRYExecuteSQL(batch), 0) << m_database.lastStatus().detail;
    }

    CNbCwDB m_database;
    RecordingMessages m_messages;
    HostMessages m_installed{m_messages};
    _zAccountMInfo m_parameters;
    std::optional<HostSession> m_session;
};

}  // namespace chengheng
