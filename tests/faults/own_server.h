#pragma once

#include <sys/types.h>

#include <QString>
#include <QTemporaryDir>

// A private MariaDB of this program alone, for tests that stop it. BOTTEGON_PROVA_MYSQL and its like point to
// it, and the test shop has its books there. It dies with the program.
class ServerProprio {
  public:
    // The one of the program, running.
    static ServerProprio& questo();
    ~ServerProprio();
    ServerProprio(const ServerProprio&) = delete;
    ServerProprio& operator=(const ServerProprio&) = delete;

    // Starts it again where it was; answers when it can be used.
    void avvia();
    // SIGTERM as at a shutdown, SIGKILL as at a power cut; answers when it is gone.
    void ferma(int segnale);
    // It neither answers nor goes.
    void sospendi();
    void riprendi();
    // Starts it again with room for so much in all tables that are made with innodb_file_per_table off; 0:
    // as much as they like.
    void limitaSpazio(int megabyte);
    bool acceso() const { return mProcesso > 0; }
    // Running, answering, and writable again, whatever a test has done to it.
    void ristabilisci();

    int porta() const { return mPorta; }
    // The connection string of the till: an account that may use the shop's database and nothing else.
    QString stringaCassa(const QString& bancaDati, int porta) const;

  private:
    ServerProprio();
    void lancia() const;
    bool risponde() const;

    QTemporaryDir mCartella;
    pid_t mProcesso = -1;
    int mPorta = 0;
    int mMegabyte = 0;
    bool mSospeso = false;
};
