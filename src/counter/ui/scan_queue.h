#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include "counter/ui/late_keys.h"

class FinestraConti;
class QKeyEvent;

// Scans that come while a box waits for its answer. Their keys do not reach the box, or the Enter behind a
// code would answer it; the codes are kept, and entered in their order when the screen is free. A prefix that
// no code follows was typed by a hand, and is given to the box after all.
class ScansioniInAttesa final : public QObject {
    Q_OBJECT
  public:
    explicit ScansioniInAttesa(FinestraConti& finestra);
    const QStringList& inAttesa() const { return mCoda; }
    // What is about to come up is not what was typed and pressed for until now: that is taken in, as long as
    // it can be. Scans are kept, and everything else is dropped.
    void raccogli();

  protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

  private:
    bool raccolto(QEvent& evento);
    void inghiotti(const QKeyEvent& evento);
    bool continua(const QKeyEvent& evento);
    bool tasto(const QKeyEvent& evento);
    bool dopoIlPrefisso(QChar carattere);
    bool senzaPrefisso(QChar carattere, bool svelto);
    void tieni();
    void finePrefisso();
    void riprova();
    void premi(Qt::Key tasto, const QString& testo);

    FinestraConti& mFinestra;
    TastiInRitardo mTastiInRitardo;
    QStringList mCoda;
    QTimer mRiprova;
    QTimer mFinePrefisso;
    QString mCodice;
    bool mConPrefisso = false;
    bool mAMeta = false;     // the beginning of what may be a scan was taken in
    bool mTagliata = false;  // or of what a hand types
    bool mRaccoglie = false;
    const QEvent* mNostro = nullptr;  // a key of our own, on its way
    qint64 mUltimo = 0;
};
