#include "faults/own_server.h"

#include <arpa/inet.h>
#include <cerrno>
#include <csignal>
#include <gtest/gtest.h>
#include <mysql.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QThread>

#include "doubles/cliente_mariadb.h"

namespace {

const char* const copione = BOTTEGON_SOURCE_DIR "/tests/servers/private_mariadb.sh";
constexpr int attesaMassima = 30000;

// A port that nobody listens on now.
int portaLibera() {
    const int presa = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in indirizzo{};
    indirizzo.sin_family = AF_INET;
    indirizzo.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t lunghezza = sizeof indirizzo;
    auto* generico = reinterpret_cast<sockaddr*>(&indirizzo);
    EXPECT_EQ(bind(presa, generico, lunghezza), 0);
    EXPECT_EQ(getsockname(presa, generico, &lunghezza), 0);
    close(presa);
    return ntohs(indirizzo.sin_port);
}

const QString nomeCartella = "bottegon-guasti-";

// A run that was killed left its folder behind; its number is in the name.
void togliCartelleAbbandonate(const QDir& dove) {
    for (const QString& nome : dove.entryList({nomeCartella + "*"}, QDir::Dirs)) {
        const pid_t processo = nome.mid(nomeCartella.size()).section('-', 0, 0).toInt();
        if (processo > 0 && kill(processo, 0) != 0 && errno == ESRCH)
            QDir(dove.filePath(nome)).removeRecursively();
    }
}

QString cartellaInMemoria() {
    const QDir dove(QDir("/dev/shm").exists() ? "/dev/shm" : QDir::tempPath());
    togliCartelleAbbandonate(dove);
    return dove.filePath(nomeCartella + QString::number(getpid()) + "-XXXXXX");
}

}  // namespace

ServerProprio& ServerProprio::questo() {
    static ServerProprio server;
    return server;
}

ServerProprio::ServerProprio() : mCartella(cartellaInMemoria()), mPorta(portaLibera()) {
    if (QProcess::execute("bash", {copione, "install", mCartella.path()}) != 0)
        throw std::runtime_error("the data folder of the server could not be made");
    qputenv("BOTTEGON_PROVA_MYSQL",
            QString("Server=127.0.0.1;Port=%1;Uid=prova;Pwd=prova;").arg(mPorta).toUtf8());
    qputenv("BOTTEGON_PROVA_MYSQL_SOCKET", mCartella.filePath("s").toUtf8());
    qputenv("BOTTEGON_PROVA_SERVER", "mysql");
    avvia();
    ClienteMariaDb().esegui("CREATE USER 'cassa'@'%' IDENTIFIED BY 'cassa'");
    ClienteMariaDb().esegui("GRANT ALL ON `prova\\_%`.* TO 'cassa'@'%'");
}

ServerProprio::~ServerProprio() {
    if (acceso()) ferma(SIGKILL);
}

// Commits are on the disk before they are answered, so that a power cut takes none away.
void ServerProprio::lancia() const {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const QByteArray cartella = mCartella.path().toUtf8();
    const QByteArray porta = QByteArray::number(mPorta);
    const QByteArray spazio = "--innodb-data-file-path=ibdata1:12M:autoextend" +
                              (mMegabyte > 0 ? ":max:" + QByteArray::number(mMegabyte) + "M" : QByteArray());
    execlp("bash", "bash", copione, "serve", cartella.constData(), porta.constData(),
           "--innodb-flush-log-at-trx-commit=1", "--innodb-autoextend-increment=1", spazio.constData(),
           nullptr);
    _exit(127);
}

bool ServerProprio::risponde() const {
    const std::unique_ptr<MYSQL, void (*)(MYSQL*)> sonda(mysql_init(nullptr), &mysql_close);
    return mysql_real_connect(sonda.get(), nullptr, "prova", "prova", nullptr, 0,
                              qPrintable(mCartella.filePath("s")), 0) != nullptr;
}

void ServerProprio::avvia() {
    mProcesso = fork();
    if (mProcesso == 0) lancia();
    QElapsedTimer inizio;
    inizio.start();
    while (!risponde()) {
        if (inizio.elapsed() > attesaMassima || waitpid(mProcesso, nullptr, WNOHANG) != 0)
            throw std::runtime_error("the server did not come up");
        QThread::msleep(20);
    }
}

void ServerProprio::ferma(int segnale) {
    kill(mProcesso, segnale);
    waitpid(mProcesso, nullptr, 0);
    mProcesso = -1;
    mSospeso = false;
}

void ServerProprio::sospendi() {
    kill(mProcesso, SIGSTOP);
    // The signal has been taken only when all threads stand.
    int stato = 0;
    while (waitpid(mProcesso, &stato, WUNTRACED) == mProcesso && !WIFSTOPPED(stato)) {
    }
    mSospeso = true;
}

void ServerProprio::riprendi() {
    kill(mProcesso, SIGCONT);
    mSospeso = false;
}

void ServerProprio::limitaSpazio(int megabyte) {
    mMegabyte = megabyte;
    ferma(SIGTERM);
    avvia();
}

void ServerProprio::ristabilisci() {
    if (mSospeso) riprendi();
    if (mMegabyte > 0 && acceso()) ferma(SIGTERM);
    mMegabyte = 0;
    if (!acceso()) avvia();
    ClienteMariaDb cliente;
    cliente.esegui("SET GLOBAL read_only = 0");
    cliente.esegui("SET GLOBAL innodb_file_per_table = 1");
    cliente.esegui("SET GLOBAL lock_wait_timeout = DEFAULT");
    cliente.esegui("SET PASSWORD FOR 'cassa'@'%' = PASSWORD('cassa')");
}

QString ServerProprio::stringaCassa(const QString& bancaDati, int porta) const {
    return QString("Server=127.0.0.1;Port=%1;Database=%2;Uid=cassa;Pwd=cassa;").arg(porta).arg(bancaDati);
}
