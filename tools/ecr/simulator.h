#pragma once

#include <deque>

#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>

#include "ecr/faults.h"
#include "ecr/frame_reader.h"
#include "ecr/receipt.h"

// A register's interface program without a register: listens on the loopback address, checks every frame,
// answers it, and tells of each receipt.
class Simulatore : public QObject {
    Q_OBJECT
  public:
    explicit Simulatore(int primoNumero = 1);
    ~Simulatore() override;

    // False when the port is taken.
    bool ascolta(int porta);
    int porta() const { return mServer.serverPort(); }
    // In force from the next frame on, for that one alone or until another is set.
    void guasto(Guasto guasto, bool unaVolta);
    Guasto guastoInForza() const { return mGuasto; }

  signals:
    void stampato(const Scontrino& scontrino);
    void comando(const QString& testo);
    void collegato(bool si);
    void guastoCambiato();
    void spento();  // the till said "OFF"
    void morto();   // the fault that ends the program

  private:
    void accogli();
    void leggi(QTcpSocket* presa);
    RispostaEcr rispondi(const LettoreCornici::Cornice& cornice);
    RispostaEcr esegui(const QString& testo, RispostaEcr risposta);
    void manda(QTcpSocket* presa, const RispostaEcr& risposta);
    void mandaAlle(qint64 ora, QTcpSocket* presa, const QByteArray& pezzo);

    QTcpServer mServer{this};
    QTcpSocket* mPresa = nullptr;
    LettoreCornici mLettore;
    Stampante mStampante;
    Guasto mGuasto = Guasto::Nessuno;
    bool mUnaVolta = false;
    QElapsedTimer mOrologio;
    qint64 mUltimoInvio;  // when the latest piece goes out, or went; milliseconds of mOrologio
};
