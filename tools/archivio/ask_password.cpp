#include "archivio/ask_password.h"

#include <cstdio>
#include <termios.h>
#include <unistd.h>

#include <QTextStream>

namespace {

const char* const variabile = "BOTTEGON_PASSWORD";

// What is typed at the terminal stays unseen while it lives.
class SenzaEco {
  public:
    SenzaEco() {
        ::tcgetattr(STDIN_FILENO, &mPrima);
        termios muto = mPrima;
        muto.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &muto);
    }
    ~SenzaEco() { ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &mPrima); }
    SenzaEco(const SenzaEco&) = delete;
    SenzaEco& operator=(const SenzaEco&) = delete;

  private:
    termios mPrima{};
};

}  // namespace

std::optional<QString> chiediPassword(const QString& diChe) {
    if (qEnvironmentVariableIsSet(variabile)) return qEnvironmentVariable(variabile);
    if (::isatty(STDIN_FILENO) == 0) return std::nullopt;
    QTextStream domanda(stderr);
    domanda << "Password di " << diChe << ": " << Qt::flush;
    const SenzaEco muto;
    const QString password = QTextStream(stdin).readLine();
    domanda << "\n" << Qt::flush;
    return password;
}
