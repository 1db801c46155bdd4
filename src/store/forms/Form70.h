#pragma once
// Access to companies: the list of every company and exercise of the installation, from which
// one is chosen, made, or the lists repaired.

#include <QDialog>
#include <QList>

class Ajustes;
class Dialogo;
class QTableWidget;
struct Sesion;

class Form70 : public QDialog {
    Q_OBJECT
public:
    enum Resultado {
        Seleccionada, // the session is on a company and year (chosen or just made)
        Terminar,     // the program must end
        Cerrada       // closed without a change, with a company already open
    };

    Form70(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    Resultado resultado() const { return resultado_; }
    // The chosen company's name and the years of its rows, in list order, for the board.
    QString nombreEmpresa() const { return nombre_; }
    QList<int> anosEmpresa() const { return anos_; }

    // Rebuilds the list and selects the row of the Inicio settings.
    void cargar();

protected:
    void reject() override;

private:
    void seleccionar();
    void nueva();
    void configurar();
    void restaurar();
    void actualizar();
    void actualizarTodas();
    void terminarTrasReparar();
    void menuContextual(const QPoint& donde);

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    QTableWidget* MSFlexGrid1;
    Resultado resultado_ = Cerrada;
    QString nombre_;
    QList<int> anos_;
};
