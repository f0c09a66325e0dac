#pragma once

#include <array>
#include <vector>

#include <QAbstractTableModel>
#include <QString>

#include "core/currency.h"

// The columns of a sale's rows.
enum class Colonna {
    Key,  // "DM_" and the row's key in the database; empty for a row never saved
    Icona,
    Marca,
    Codice,
    IdProdotto,
    Descrizione,
    IdIva,
    CodIva,
    DescIva,
    Iva,          // VAT percentage
    Quantita,     // negative on a return row
    OldQuantita,  // as last saved; "0" on a new row
    IdUm,
    Um,
    PrezzoListino,  // unit list price without VAT
    ScontoTesto,    // the three discounts joined by "+"
    Sconto1,
    Sconto2,
    Sconto3,
    PrezzoNetto,        // unit net price, rounded
    PrezzoNettoEsteso,  // unit net price with full precision
    Importo,            // row total as shown, VAT included
    Gestione,           // the row's save state
    Rid,                // key in DettagliMovimento; empty when new
    Taglio,             // cost layer
    IdDistintaBase,     // on a component of a kit, the reference to its head
    ScNetto,            // discount amount per unit
    TotPrNetto,         // net total of the row
    IvaProd,            // VAT per unit
    TotIvaProd,         // VAT of the row
    IdVenditore,
    DescVenditore,
    Ora,
    ElencoSpeciale,
    BloccaPrezzo,
};
constexpr int numeroColonne = 35;

// The row's save state.
enum Gestione { RigaInvariata = 0, RigaNuova = 1, RigaModificata = 2, RigaCancellata = 3 };

// The text cells of one row.
class TestiRiga {
  public:
    QString& operator[](Colonna colonna) { return mTesti[static_cast<size_t>(colonna)]; }
    const QString& operator[](Colonna colonna) const { return mTesti[static_cast<size_t>(colonna)]; }

  private:
    std::array<QString, numeroColonne> mTesti;
};

// The rows of a sale: a table of text cells, and the only copy of them. Rows count from 1, row 0 is the
// heading; an empty cell reads as 0. The view's rows are one less.
class FlexVB final : public QAbstractTableModel {
  public:
    // Roles beyond Qt's own that a view asks for.
    enum Ruolo {
        RuoloSelezionata = Qt::UserRole,
        RuoloColoreTesto,
        RuoloNascosta,
        RuoloAllineaDestra,
        RuoloTestaDistinta,   // the head of a kit
        RuoloPiegata,         // its components are folded away
        RuoloComponente,      // of a kit
        RuoloPrezzoCambiato,  // the list price is not the one that was read
        RuoloPrezzoBloccato,
        RuoloPrezzoZero,  // nothing is charged for the row
    };

    // Titles as in a format string, parted by "|"; and whether a column is shown.
    static const QString& intestazione();
    static QStringList titoli();
    static bool mostrata(Colonna colonna, int prezzoType);
    static bool allineataADestra(Colonna colonna);

    // The heading counted: an empty sale has 1.
    int righe() const { return static_cast<int>(mRighe.size()) + 1; }
    int ultima() const { return static_cast<int>(mRighe.size()); }

    // A row that does not exist: RunTimeError 9.
    const QString& cella(int riga, Colonna colonna) const;
    void scrivi(int riga, Colonna colonna, const QString& testo);

    // Reads of a cell as a value; what is not numeric is 0.
    Currency currency(int riga, Colonna colonna) const;
    float single(int riga, Colonna colonna) const;
    int chiave(int riga, Colonna colonna) const;
    int gestione(int numero) const { return riga(numero).gestione; }
    bool viva(int riga) const { return gestione(riga) != RigaCancellata; }
    // Whether there is anything to save: a row that was taken away before it was ever saved is nothing.
    bool haElementi() const;

    // A number that a row has from the last write to its cells on; never 0, and never given twice.
    quint64 revisione(int numero) const { return riga(numero).revisione; }

    // A new row of empty cells before `posizione`, or at the end when that is below 1; answers its place.
    int aggiungi(int posizione = -1);
    // A new row of those cells at the end; answers its place. Whoever watches hears of it once.
    int aggiungi(TestiRiga celle);
    void svuota();

    bool nascosta(int riga) const;
    void nascondi(int riga, bool nascosta);
    // 0xRRGGBB; the view's own colour when negative.
    int coloreTesto(int riga) const;
    void coloreTesto(int riga, int colore);
    // The components of the kit at that row are folded away.
    bool piegata(int riga) const;
    void piega(int riga, bool piegata);
    // The list price as it was read when the row was entered; empty when it was not.
    const QString& listinoLetto(int riga) const;
    void listinoLetto(int riga, const QString& prezzo);
    // The row painted as selected; 0 when none.
    int selezionata() const { return mSelezionata; }
    void seleziona(int riga);
    // The current row; 0 when none.
    int corrente() const { return mCorrente; }
    void corrente(int riga) { mCorrente = riga; }

    int rowCount(const QModelIndex& padre = {}) const override;
    int columnCount(const QModelIndex& padre = {}) const override;
    QVariant data(const QModelIndex& indice, int ruolo) const override;
    QVariant headerData(int sezione, Qt::Orientation verso, int ruolo) const override;

  private:
    struct Riga {
        TestiRiga celle;
        bool nascosta = false;
        bool piegata = false;
        int coloreTesto = -1;
        int gestione = 0;  // the number in its cell
        quint64 revisione = 0;
        QString listinoLetto;
    };
    int inserisci(int posto, Riga riga);
    Riga& riga(int numero);
    const Riga& riga(int numero) const;
    void rigaCambiata(int numero);
    QVariant segno(const Riga& riga, int ruolo) const;

    std::vector<Riga> mRighe;
    quint64 mRevisione = 0;  // the last one given
    int mSelezionata = 0;
    int mCorrente = 0;
};
