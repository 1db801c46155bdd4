#pragma once
// "Quilmar [Modelo 347]": the annual declaration of third parties on three kinds of sheet, all
// editable: the summary ("Hoja resumen"), the parties five to a sheet ("Relación de
// declarados") and the rented properties four to a sheet ("Relación de inmuebles"), whose
// address is kept in Form108. A field is written back to the return when the user leaves it.
// "Imprimir &Borrador" prints our draft; "Imprimir &Mod. oficial" and "Envío Telemático" check
// the return, moving the focus to the failing sheet, line and field, and make Gen347.txt.
//
// Usage (after Form98):
//     auto* f = new Form97(s, a, d, modelo, tablero);   // modelo from Nuevo347
//     f->setAttribute(Qt::WA_DeleteOnClose);
//     f->show();

#include "tax/Fichero347.h"
#include "tax/Modelo347.h"
#include "tax/forms/CamposModelo.h"

#include <QHash>

class QLabel;
class QPushButton;
class QStackedWidget;
struct Campo347;

class Form97 : public PantallaModelo {
    Q_OBJECT
public:
    Form97(Sesion& s, Ajustes& a, Dialogo& d, const Modelo347& modelo, QWidget* padre = nullptr);

    const Modelo347& modelo() const { return m_; }
    // The hand-off to the authority's platform (its folder choice is elegirCarpeta).
    Plataforma347 plataforma;

    void ImprimirBorrador();
    // 0: "Imprimir &Mod. oficial"; 1: "Envío Telemático".
    void Presentar(int indice);
    // Shows a sheet: the summary, or page `pagina` (from 0) of a list.
    void IrAHoja(Hoja347 hoja, int pagina = 0);
    void Siguiente();
    void Anterior();
    // The sheet, line and field of a failed check, with the focus.
    void EnfocarFallo(const Fallo347& f);

    Hoja347 hoja() const { return hoja_; }
    int pagina() const { return pagina_; }

    QLabel* etiquetaHoja;  // "Hoja nº <n> / <total>"
    QPushButton* Command1; // Hoja resumen
    QPushButton* Command2; // Inmuebles
    QPushButton* Command3; // < &Anterior
    QPushButton* Command4; // Si&guiente >
    QPushButton* Command5; // Imprimir &Borrador
    QPushButton* Command6; // Imprimir &Mod. oficial
    QPushButton* Command7; // Envío Telemático
    QPushButton* Command8; // Ay&uda
    QPushButton* Command9; // &Salir

private:
    // Where a box writes: its sheet, its line on the sheet (-1 on the summary), its field.
    struct Ubicacion {
        Hoja347 hoja = Hoja347::Resumen;
        int linea = -1;
        QString campo;
    };

    QWidget* crearResumen();
    QWidget* crearDeclarados();
    QWidget* crearInmuebles();
    QWidget* caja(Hoja347 hoja, int linea, const Campo347& campo);
    // The sheets a list may show: those of its lines and, after a full one, one more to type in.
    int paginasPermitidas(Hoja347 hoja) const;
    int indice(const Ubicacion& u) const;
    QString textoDe(QWidget* w) const;
    void ponerTexto(QWidget* w, const QString& texto);
    void escribir(QWidget* w);
    void confirmarFoco();
    void mostrar();
    void quitar(Hoja347 hoja, int linea);
    void domicilio(int linea);

    Modelo347 m_;
    QHash<QWidget*, Ubicacion> ubicaciones_;
    QStackedWidget* pila_;
    QLabel* titulo_;
    Hoja347 hoja_ = Hoja347::Resumen;
    int pagina_ = 0;
    bool cargando_ = false;
};
