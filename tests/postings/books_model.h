#pragma once

#include <map>
#include <vector>

#include <QDate>
#include <QStringList>

// Money in ten-thousandths.
using Decimillesimi = long long;

// What the books of a shop with a warehouse and a store behind it must hold, kept by the rules in plain
// values and nothing of the program. Products, documents and customers are told by their own numbers; all
// dates are of one year.
class ModelloLibri {
  public:
    static constexpr int pagamentoDelBanco = 1;

    struct Prodotto {
        QString codice;
        Decimillesimi prezzo;  // of one piece, without VAT
        int aliquota;          // per cent
        Decimillesimi prezzoAcquisto;
        bool gestito;  // has stock
        // Of a kit, which has no price and no stock of its own: products, and how many of each.
        std::vector<std::pair<int, int>> parti = {};
    };
    struct Riga {
        int prodotto;
        int quantita;              // negative: a return
        Decimillesimi taglio = 0;  // the cost layer that it moved
        bool componente = false;   // of the kit above it
        bool alCosto = false;      // goes to the store
    };
    // Pagamenti: what is paid at once and what later, per cent and days.
    struct Termini {
        int acconto = 0;
        std::vector<std::pair<int, int>> rate = {};
    };
    // One row of a saved sale as it is saved again.
    struct RigaRisalvata {
        enum Stato { Invariata, Nuova, Modificata, Cancellata };
        Riga riga;
        int quantitaPrima = 0;
        Stato stato = Invariata;
    };
    struct Documento {
        QString tipo;
        int numero = 0;
        QDate data;
        int cliente = 0;  // Anagrafiche.NUMERO
        bool pagato = false;
        int pagamento = pagamentoDelBanco;
        Decimillesimi imposta = 0, totale = 0;
        int registrazione = 0, incasso = 0;             // numbers in the journal; 0: none
        std::map<int, std::vector<Riga>> vendite = {};  // by EXTRAPROG
    };
    static constexpr int clienteDelBanco = 1;

    explicit ModelloLibri(bool prezzoMedio) : mPrezzoMedio(prezzoMedio) {}

    int aggiungiProdotto(const Prodotto& prodotto, int giacenza, Decimillesimi costo);
    void aggiungiPagamento(int pagamento, const Termini& termini) { mTermini[pagamento] = termini; }
    // Of what the customer buys on credit from now on.
    void assegnaPagamento(int cliente, int pagamento) { mPagamenti[cliente] = pagamento; }
    const std::vector<Prodotto>& prodotti() const { return mProdotti; }
    const std::map<int, Documento>& documenti() const { return mDocumenti; }

    // The rows that a product makes: its own, and below a kit's the components.
    std::vector<Riga> righeDi(int prodotto, int quantita) const;
    // Another quantity, for the components of a kit too; `riga` is no component.
    void cambiaQuantita(std::vector<RigaRisalvata>& righe, size_t riga, int quantita) const;

    // A purchase: a new layer, or more of one that has that cost.
    void carica(int prodotto, int quantita, Decimillesimi costo, QDate data);
    // A new sale; the walk-in customer's goes under the header of its day. Answers the document's key here.
    int salva(const QString& tipo, int cliente, QDate data, bool pagato, std::vector<Riga> righe);
    void risalva(int documento, int extra, const std::vector<RigaRisalvata>& righe, QDate oggi);
    // False: what would remain has negative VAT, and nothing happens.
    bool cancella(int documento, int extra, QDate oggi);
    // The only sale of a document becomes a document of the other type, with those of its rows that are not
    // marked for deletion.
    void converti(int documento, const QString& tipo, const std::vector<RigaRisalvata>& righe, QDate oggi);

    // Goods that go to the store, at their cost.
    int trasferisci(QDate data, std::vector<Riga> righe);

    // VAT and total of what stands under a document.
    Decimillesimi impostaDelleRighe(const Documento& d) const;
    Decimillesimi totaleDelleRighe(const Documento& d) const;

    // One line a row, each beginning with its table, sorted: as statiLibri() reads them from an archive.
    QStringList stato() const;

  private:
    struct Strato {
        Decimillesimi costo;
        int quantita;
    };
    struct Carico {
        int prodotto, quantita;
        Decimillesimi costo;
        QDate data;
    };
    struct Registrazione {
        QDate data;
        int causale, cliente;
        QString descrizione, partita;
        Decimillesimi importo, imposta;
        int pagamento;
        std::vector<std::pair<QDate, Decimillesimi>> scadenze = {};
    };

    using Strati = std::vector<Strato>;  // the oldest first

    Decimillesimi netto(const Riga& riga) const;
    Decimillesimi imposta(const Riga& riga) const;
    // The layer that a row takes its goods from.
    static Decimillesimi costoDaScaricare(const Strati& strati);
    int nuovoDocumento(const QString& tipo, int cliente, QDate data, bool pagato);
    int pagamentoDi(int cliente, bool pagato) const;
    // Takes `delta` pieces from the stock; `taglio` below 0 is chosen, and holds the layer moved after it.
    void muovi(int prodotto, int delta, Decimillesimi& taglio, QDate oggi);
    Decimillesimi costoMedio(int prodotto, QDate oggi) const;
    Strati::iterator strato(Strati& strati, Decimillesimi costo) const;
    void contabilizza(Documento& d);
    void registra(int& numero, const Registrazione& registrazione);
    void scadenzia(const Documento& d, Decimillesimi importo);
    static void statoMagazzino(const QString& inizio, const Strati& strati, QStringList& righe);
    void statoGiacenze(QStringList& righe) const;
    void statoDocumenti(QStringList& righe) const;
    void statoContabile(QStringList& righe) const;

    bool mPrezzoMedio;
    std::vector<Prodotto> mProdotti;
    std::map<int, Termini> mTermini;
    std::map<int, int> mPagamenti;  // by customer
    std::vector<int> mGiacenze;
    std::vector<Strati> mStrati;    // of each product in the shop
    std::vector<Strati> mDeposito;  // and in the store
    std::vector<Carico> mCarichi;
    std::map<int, Documento> mDocumenti;
    int mUltimaChiave = 0;
    std::map<int, Registrazione> mPrimaNota;
    std::map<QString, int> mContatori;
};

// The shape of the counter's and the converted documents, and of purchases.
extern const QString tipoBanco;
extern const QString tipoFattura;
extern const QString tipoCarico;
extern const QString tipoTrasferimento;
// How far back the average looks.
constexpr int mesiDelModello = 1;

class Negozio;
// What the archive holds, told as ModelloLibri::stato() tells it.
QStringList statoLibri(const Negozio& negozio);
