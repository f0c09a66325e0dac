#pragma once

#include <QTemporaryDir>

#include "archivio/create_archive.h"
#include "doubles/conto_di_prova.h"

// A till on a fresh demo shop, without a window, for the benchmarks. Questions are answered No.
class TillDimostrativa {
  public:
    // With `prodotti` above those of the demo shop the catalogue grows to as many, by copies.
    explicit TillDimostrativa(int prodotti = 0);
    // On a made-up shop of that size instead.
    explicit TillDimostrativa(const MisureNegozio& misure);
    ~TillDimostrativa();
    TillDimostrativa(const TillDimostrativa&) = delete;
    TillDimostrativa& operator=(const TillDimostrativa&) = delete;

    ContoDiProva& conto() { return *mConto; }
    // The barcode of the i-th product of the demo shop that sells without a question, from 0, over the
    // whole catalogue.
    QString barcode(int i) const { return mBarcode[static_cast<qsizetype>(i) % mBarcode.size()]; }
    QString archivio() const { return mCartella.filePath("banco.mdb"); }

    // How often a rule has asked for a pause so far, in this process.
    static int pause();

    // Runs `azione` and answers the statements that reached the archive meanwhile, begin and commit too.
    static QStringList istruzioni(const std::function<void()>& azione);

  private:
    TillDimostrativa(const OpzioniCreazione& opzioni, int prodotti);

    QTemporaryDir mCartella;
    std::unique_ptr<OperatorPort> mOperatore;
    ContoDiProva* mConto = nullptr;
    QStringList mBarcode;
};
