#pragma once

#include <QTableView>

class FlexVB;

// The rows of a sale as a table. Its current row follows the model's; only the operator's own keys and
// mouse make it tell of another row. Rows count from 1, as in the model.
class GrigliaVendita final : public QTableView {
    Q_OBJECT
  public:
    GrigliaVendita(FlexVB& righe, QWidget* padre);

    // Which columns are shown depends on the kind of price that ends a row.
    void mostraColonne(int prezzoType);
    // Brings the row into view, at the top when it was out of it.
    void mostraRiga(int riga);
    // Painting off and on; calls nest.
    void ridisegno(bool acceso);

  signals:
    // The operator moved to another row.
    void rigaCambiata(int riga);
    // The operator clicked the row, changed or not.
    void rigaPremuta(int riga);
    // The click was on its icon.
    void iconaPremuta(int riga);

  protected:
    void currentChanged(const QModelIndex& nuovo, const QModelIndex& vecchio) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseMoveEvent(QMouseEvent*) override {}
    void keyPressEvent(QKeyEvent* evento) override;
    void focusInEvent(QFocusEvent* evento) override;
    void paintEvent(QPaintEvent* evento) override;

  private:
    void seguiModello();
    void nascondiRighe(int prima, int ultima);

    FlexVB& mRighe;
    bool mGestoOperatore = false;
    int mRidisegnoSpento = 0;
};
