#pragma once

#include <vector>

#include <QDialog>

class QPushButton;
class QTreeWidget;
class Recordset;
struct ColonnaElenco;

// A list over a recordset that the caller holds; the caller finds the recordset on the chosen record.
class frmSelectElement final : public QDialog {
    Q_OBJECT
  public:
    explicit frmSelectElement(QWidget* padre);

    // `colonne`: title, width and field name parted by "¤", each column ended by "|"; what stands after the
    // last "|" makes no column, and a width of 0 hides one. `nuovo` offers a new element, `multi` several
    // selections, of which the first counts. Modal.
    void startMe(Recordset& righe, const QString& colonne, bool nuovo, bool multi);

    bool elementoSelezionato() const { return mSelezionato; }
    bool elementoNuovo() const { return mNuovo; }

  private:
    void riempi(const QString& specifica);
    void aggiungiColonne(const std::vector<ColonnaElenco>& colonne);
    void conferma();

    Recordset* mRighe = nullptr;
    QTreeWidget* lswElenco;
    QPushButton* cmdNew;
    QPushButton* cmdOk;
    bool mSelezionato = false;
    bool mNuovo = false;
};
