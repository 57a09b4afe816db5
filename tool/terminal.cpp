#include "tool/terminal.h"

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>

namespace chengheng {
namespace {

constexpr char interruptKey = 3;
constexpr char endKey = 4;
constexpr char backspaceKey = 8;
constexpr char deleteKey = 127;

/// The terminal of the process, showing nothing of what is typed while this lives. Keys come
/// one by one, Ctrl+C among them, so that the terminal is always left as it was.
class SilentTerminal {
  public:
    SilentTerminal() : m_file(open("/dev/tty", O_RDWR | O_NOCTTY | O_CLOEXEC)) {
        if (m_file < 0 || tcgetattr(m_file, &m_before) != 0) return;
        termios silent = m_before;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO | ICANON | ISIG);
        silent.c_cc[VMIN] = 1;
        silent.c_cc[VTIME] = 0;
        m_isReady = tcsetattr(m_file, TCSAFLUSH, &silent) == 0;
    }
    ~SilentTerminal() {
        if (m_isReady) tcsetattr(m_file, TCSAFLUSH, &m_before);
        if (m_file >= 0) close(m_file);
    }
    SilentTerminal(const SilentTerminal&) = delete;
    SilentTerminal& operator=(const SilentTerminal&) = delete;

    bool isReady() const { return m_isReady; }
    void show(std::string_view text) const {
        while (!text.empty()) {
            const ssize_t written = write(m_file, text.data(), text.size());
            if (written < 0 && errno != EINTR) return;
            if (written > 0) text.remove_prefix(static_cast<std::size_t>(written));
        }
    }
    bool readKey(char& key) const {
        while (true) {
            const ssize_t got = read(m_file, &key, 1);
            if (got >= 0 || errno != EINTR) return got == 1;
        }
    }

  private:
    int m_file;
    termios m_before{};
    bool m_isReady = false;
};

/// Takes back the last character, which may be several bytes long.
void eraseLast(std::string& text) {
    const auto isContinuation = [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
    };
    while (!text.empty() && isContinuation(text.back())) text.pop_back();
    if (!text.empty()) text.pop_back();
}

}  // namespace

Status askSecret(std::string_view prompt, std::string& answer) {
    answer.clear();
    SilentTerminal terminal;
    if (!terminal.isReady()) return Status::of(Failure::missing, "no terminal");
    terminal.show(prompt);
    char key = 0;
    while (terminal.readKey(key)) {
        const bool isEnd = key == interruptKey || (key == endKey && answer.empty());
        if (isEnd) break;
        if (key == '\n' || key == '\r') {
            terminal.show("\n");
            return Status::done();
        }
        if (key == deleteKey || key == backspaceKey)
            eraseLast(answer);
        else
            answer += key;
    }
    terminal.show("\n");
    answer.clear();
    return Status::of(Failure::cancelled, "no answer");
}

}  // namespace chengheng
