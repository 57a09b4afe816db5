#include "shell/server_passwords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <fstream>
#include <optional>

#include "books/logon/server_fields.h"
#include "data/engines/open_engine.h"
#include "tests/support/private_postgres.h"
#include "tests/support/recording_messages.h"
#include "tests/window/logon_fixture.h"
#include "tests/window/next_modal.h"
#include "tests/window/remembered_secrets.h"

using namespace chengheng;

namespace {

/// Books on a server whose operator has a password of his own there.
struct LockedServer {
    LockedServer() {
        server.emplace();
        address = makeBooks(server->address() + "?schema=zw001_2026");
        askServer(server->address(), "CREATE ROLE bookkeeper SUPERUSER LOGIN PASSWORD 'ge@heim 1'");
        ServerFields fields = serverFieldsOf(address);
        fields.user = "bookkeeper";
        location = addressOf(fields);
    }
    void list(const BooksRegistry& registry, const std::string& listed) const {
        RegistryChange change(registry);
        change.enter({1, "示例帐套", "示例贸易有限公司", {}}, {2026, listed});
        ASSERT_TRUE(change.save());
    }
    std::optional<PrivatePostgres> server;
    std::string address;
    std::string location;  ///< of that operator, without his password
};

void givePassword(QWidget& box, const char* password, bool isToBeKept = false) {
    EXPECT_EQ(box.windowTitle(), "服务器口令");
    EXPECT_EQ(box.findChild<QLineEdit*>("serverPassword")->echoMode(), QLineEdit::Password);
    typeText(box.findChild<QLineEdit*>("serverPassword"), password);
    box.findChild<QCheckBox*>()->setChecked(isToBeKept);
    QTest::keyClick(&box, Qt::Key_Return);
}

}  // namespace

TEST(ServerPassword, IsAskedForUntilTheServerTakesItAndKeptWhereThatIsWanted) {
    if (!hasTestServer()) GTEST_SKIP() << "no PostgreSQL server for tests";
    const LockedServer server;
    Station station;
    server.list(station.registry, server.location);
    LogonWindow& window = station.open();
    station.type("operatorName", "王芳");
    station.type("password", "secret");
    int asked = 0;
    std::optional<NextModal> second;
    const NextModal first([&](QWidget& box) {
        ++asked;
        second.emplace([&](QWidget& again) {
            ++asked;
            EXPECT_TRUE(again.findChild<QLabel*>()->text().contains("没有接受"));
            givePassword(again, "ge@heim 1", true);
        });
        givePassword(box, "guess");
    });
    window.accept();
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(window.result(), QDialog::Accepted) << station.messages.texts().size();
    EXPECT_THAT(station.messages.texts(), testing::IsEmpty());
    EXPECT_EQ(station.secrets.secrets,
              (std::map<std::string, std::string>{{server.location, "ge@heim 1"}}));
}

TEST(ServerPassword, OfTheKeyringIsTakenWithoutAWord) {
    if (!hasTestServer()) GTEST_SKIP() << "no PostgreSQL server for tests";
    const LockedServer server;
    Station station;
    server.list(station.registry, server.location);
    station.secrets.secrets[server.location] = "ge@heim 1";
    LogonWindow& window = station.open();
    station.type("operatorName", "王芳");
    station.type("password", "secret");
    window.accept();
    EXPECT_EQ(window.result(), QDialog::Accepted);
    EXPECT_EQ(station.secrets.readings, 1);
}

TEST(ServerPassword, GivenUpLeavesTheWindowOpenWithoutAWord) {
    if (!hasTestServer()) GTEST_SKIP() << "no PostgreSQL server for tests";
    const LockedServer server;
    Station station;
    server.list(station.registry, server.location);
    LogonWindow& window = station.open();
    station.type("operatorName", "王芳");
    station.type("password", "secret");
    const NextModal giving([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    window.accept();
    EXPECT_TRUE(giving.hasCome());
    EXPECT_TRUE(window.isVisible());
    EXPECT_THAT(station.messages.texts(), testing::IsEmpty());
}

TEST(ServerPassword, ThatCannotBeKeptIsToldAndUsedAllTheSame) {
    if (!hasTestServer()) GTEST_SKIP() << "no PostgreSQL server for tests";
    const LockedServer server;
    Station station;
    server.list(station.registry, server.location);
    station.secrets.isOpen = false;
    LogonWindow& window = station.open();
    station.type("operatorName", "王芳");
    station.type("password", "secret");
    const NextModal giving([](QWidget& box) { givePassword(box, "ge@heim 1", true); });
    window.accept();
    EXPECT_EQ(window.result(), QDialog::Accepted);
    EXPECT_EQ(station.messages.onlyNotice().text,
              "桌面的密钥环不能使用,口令没有保存,下次需要重新输入。");
}

TEST(ServerPassword, OfAnAddressIsUsedWithWhateverElseIsSecretInIt) {
    RememberedSecrets store;
    RecordingMessages messages;
    ServerPasswords passwords(store, messages);
    const std::string whole = "postgresql://li:geheim@db/books?sslpassword=x&schema=a";
    const std::string shown = "postgresql://li@db/books?schema=a";
    EXPECT_EQ(passwords.take(whole), shown);
    std::string used;
    const auto work = [&used](const std::string& address) {
        used = address;
        return std::optional<Refusal>();
    };
    passwords.withPassword(shown, nullptr, work);
    EXPECT_EQ(used, whole);
    // The list of books keeps what is no password of a server.
    passwords.withPassword("postgresql://li@db/books?sslpassword=y&schema=a", nullptr, work);
    EXPECT_EQ(serverPasswordIn(used), "geheim");
    EXPECT_THAT(used, testing::HasSubstr("sslpassword=y"));
}

TEST(ServerPassword, IsNotKeptWhereTheLogonFailedForAnotherReason) {
    RememberedSecrets store;
    RecordingMessages messages;
    ServerPasswords passwords(store, messages);
    const std::string address = "postgresql://li@db/books?schema=a";
    const NextModal asked([](QWidget& box) { givePassword(box, "geheim", true); });
    const auto refusal = passwords.withPassword(address, nullptr, [](const std::string& used) {
        Refusal refused;
        refused.kind =
            serverPasswordIn(used).empty() ? RefusalKind::serverPassword : RefusalKind::failed;
        return std::optional(refused);
    });
    EXPECT_TRUE(asked.hasCome());
    EXPECT_TRUE(refusal && refusal->kind == RefusalKind::failed);
    EXPECT_THAT(store.secrets, testing::IsEmpty());
}

TEST(ServerPassword, InTheListOfAnEarlierProgramIsUsedAndTakenOutOfTheList) {
    if (!hasTestServer()) GTEST_SKIP() << "no PostgreSQL server for tests";
    const LockedServer server;
    Station station;
    server.list(station.registry, server.location);
    const std::string full = withServerPassword(server.location, "ge@heim 1");
    std::ifstream before(station.registry.path());
    std::string text{std::istreambuf_iterator<char>(before), {}};
    text.replace(text.find(server.location), server.location.size(), full);
    std::ofstream(station.registry.path()) << text;
    LogonWindow& window = station.open();
    std::ifstream after(station.registry.path());
    const std::string rewritten{std::istreambuf_iterator<char>(after), {}};
    EXPECT_NE(rewritten.find(server.location), std::string::npos);
    EXPECT_EQ(rewritten.find("password"), std::string::npos);
    EXPECT_EQ(rewritten.find("ge%40heim"), std::string::npos);
    station.type("operatorName", "王芳");
    station.type("password", "secret");
    window.accept();
    EXPECT_EQ(window.result(), QDialog::Accepted);
}

TEST(OpenBooksWindow, TakesTheFieldsOfAServerAndStoresNoPassword) {
    if (!hasTestServer()) GTEST_SKIP() << "no PostgreSQL server for tests";
    const LockedServer server;
    const ServerFields fields = serverFieldsOf(server.location);
    Station station;
    LogonWindow& window = station.open();
    {
        const NextModal filling([&](QWidget& dialog) {
            const auto type = [&](const char* name, const std::string& text) {
                typeText(dialog.findChild<QLineEdit*>(name), QString::fromStdString(text));
            };
            type("host", fields.host);
            type("port", fields.port);
            type("database", fields.database);
            type("schema", fields.schema);
            type("user", fields.user);
            type("serverPassword", "ge@heim 1");
            EXPECT_EQ(dialog.findChild<QLineEdit*>("location")->text().toStdString(),
                      server.location);
            clickOn(dialog, "确定");
        });
        clickOn(window, "打开其他帐套(&O)");
    }
    EXPECT_EQ(station.field<QComboBox>("location").currentText(), "示例帐套 2026年度");
    std::ifstream file(station.registry.path());
    const std::string list{std::istreambuf_iterator<char>(file), {}};
    EXPECT_NE(list.find(server.location), std::string::npos);
    EXPECT_EQ(list.find("heim"), std::string::npos);
    station.type("operatorName", "王芳");
    station.type("password", "secret");
    window.accept();
    EXPECT_EQ(window.result(), QDialog::Accepted);
}
