#include "shell/secret_store.h"

#include <qt6keychain/keychain.h>

#include <QEventLoop>

namespace chengheng {
namespace {

/// The keyring may ask whoever sits there to open it, in a window of its own.
bool runToItsEnd(QKeychain::Job& job, const std::string& key) {
    job.setAutoDelete(false);
    job.setInsecureFallback(false);
    job.setKey(QString::fromStdString(key));
    QEventLoop loop;
    QObject::connect(&job, &QKeychain::Job::finished, &loop, &QEventLoop::quit);
    job.start();
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    return job.error() == QKeychain::NoError;
}

QString service() { return QStringLiteral("chengheng"); }

}  // namespace

std::optional<std::string> DesktopKeyring::read(const std::string& key) {
    QKeychain::ReadPasswordJob job(service());
    if (!runToItsEnd(job, key)) return std::nullopt;
    return job.textData().toStdString();
}

bool DesktopKeyring::write(const std::string& key, const std::string& secret) {
    QKeychain::WritePasswordJob job(service());
    job.setTextData(QString::fromStdString(secret));
    return runToItsEnd(job, key);
}

}  // namespace chengheng
