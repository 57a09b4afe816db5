#pragma once

#include <string>

namespace chengheng {

/// Whether CHENGHENG_TEST_POSTGRES names a server for tests.
bool hasTestServer();

/// The address of a schema that is not there yet, another one with each call; gone when the
/// program ends. Throws when there is no server for tests.
std::string freshSchema();

/// An address with a part of it replaced; throws when the part does not occur.
std::string replaced(std::string address, const std::string& part, const std::string& by);

/// Runs statements on a connection of its own and returns the first cell of the last one's
/// result, "" when it has none; throws when they fail.
std::string askServer(const std::string& address, const std::string& sql);

/// Ends a session, as an administrator would, and waits until it is gone.
void endSession(const std::string& address, const std::string& session);

/// A server of its own for a test that stops it; removed with this object.
class PrivatePostgres {
  public:
    PrivatePostgres();
    ~PrivatePostgres();
    PrivatePostgres(const PrivatePostgres&) = delete;
    PrivatePostgres& operator=(const PrivatePostgres&) = delete;

    const std::string& address() const { return m_address; }
    /// Stops it at once, as a power cut would.
    void stop();
    /// Starts it again under the same address.
    void startAgain();

  private:
    std::string m_folder;
    std::string m_address;
};

}  // namespace chengheng
