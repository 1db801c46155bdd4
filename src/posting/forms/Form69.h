#pragma once
// "Asientos prediseñados": the list that F12 shows, code and name of each template, ordered by
// code or by name as the menu says (kept in Valores\OrdenF12 as "Codigos" or "Nombres"). Enter or
// a double click chooses the template to post.

#include <QDialog>
#include <optional>

class Ajustes;
class Dialogo;
class QAction;
class QLabel;
class QTableWidget;
struct Sesion;

class Form69 : public QDialog {
    Q_OBJECT
public:
    Form69(const Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    // The code chosen, once accepted.
    std::optional<int> elegido() const { return elegido_; }

    QTableWidget* MSFlexGrid1;
    QLabel* Label1;      // "INTRO o doble clic para contabilizar"
    QAction* mnuCodigos; // "Ordenar por Códigos"
    QAction* mnuNombres; // "Ordenar por Nombres"

    void LlenarFlex();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void ordenar(bool porNombres);
    void elegir(int fila);

    const Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    std::optional<int> elegido_;
};
