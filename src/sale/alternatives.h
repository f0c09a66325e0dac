#pragma once

#include <vector>

#include <QAbstractTableModel>
#include <QString>

struct Vendita;

// The products that can stand in for the one in the row editor, as shown beside it.
class ElencoAlternativi final : public QAbstractTableModel {
  public:
    struct Voce {
        int idProdotto = -1;
        QString marca;
        QString codice;
        QString giacenza;
    };

    const std::vector<Voce>& voci() const { return mVoci; }
    void svuota();
    void aggiungi(Voce voce);

    int rowCount(const QModelIndex& padre = {}) const override;
    int columnCount(const QModelIndex& padre = {}) const override;
    QVariant data(const QModelIndex& indice, int ruolo) const override;
    QVariant headerData(int sezione, Qt::Orientation verso, int ruolo) const override;

  private:
    std::vector<Voce> mVoci;
};

// Fills the list from ProdottiAlternativi, where a pair stands in either order; one stored twice shows once.
void showAlternativi(Vendita& v, int idProdotto);
bool verifyAlternativoExist(const Vendita& v, int idProdotto);
// The operator took the alternative at that place, from 0: the product is entered.
void lswAlternativi_DblClick(Vendita& v, int posizione);
