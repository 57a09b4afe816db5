#include "shell/secret_store.h"

#include <qt6keychain/keychain.h>

#include <QEventLoop>
#include <QTimer>
#include <chrono>
#include <functional>

namespace chengheng {
namespace {

/// The keyring may ask whoever sits there to open it, in a window of its own; one that never
/// answers must not keep the log-on.
constexpr std::chrono::seconds patience(60);

/// Runs a job, which removes itself at its end, however late that comes. `finished` is called only
/// when it ended well and in time.
template <class Job>
void run(Job* job, const std::string& key, const std::function<void(const Job& job)>& finished) {
    job->setAutoDelete(true);
    job->setInsecureFallback(false);
    job->setKey(QString::fromStdString(key));
    QEventLoop loop;
    QObject::connect(job, &QKeychain::Job::finished, &loop, [&loop, &finished, job] {
        if (job->error() == QKeychain::NoError) finished(*job);
        loop.quit();
    });
    QTimer::singleShot(patience, &loop, &QEventLoop::quit);
    job->start();
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

QString service() { return QStringLiteral("chengheng"); }

}  // namespace

std::optional<std::string> DesktopKeyring::read(const std::string& key) {
    using Job = QKeychain::ReadPasswordJob;
    std::optional<std::string> secret;
    run<Job>(new Job(service()), key,
             [&secret](const Job& job) { secret = job.textData().toStdString(); });
    return secret;
}

bool DesktopKeyring::write(const std::string& key, const std::string& secret) {
    using Job = QKeychain::WritePasswordJob;
    auto* job = new Job(service());
    job->setTextData(QString::fromStdString(secret));
    bool isKept = false;
    run<Job>(job, key, [&isKept](const Job&) { isKept = true; });
    return isKept;
}

}  // namespace chengheng
