#include "annual/forms/MenusAnuales.h"

#include "annual/Memoria.h"
#include "annual/forms/Form14.h"
#include "annual/forms/FormEstado.h"
#include "platform/Ajustes.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "posting/forms/Form1.h"
#include "store/Sesion.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QProcess>

namespace {

// Opens a document in the user's editor, or the desktop's; when neither can, the user may pick
// the program, which is kept for the next time.
void Abrir(QWidget* padre, const QString& ruta, Ajustes& a, Dialogo& d) {
    if (AbrirEnEditor(ruta, a, d))
        return;
    if (!a.leer(QStringLiteral("Datos"), QStringLiteral("Editor")).trimmed().isEmpty())
        return;
    const QString editor = QFileDialog::getOpenFileName(
        padre, QStringLiteral("Seleccione el programa con el que abrir la Memoria"),
        QStringLiteral("/usr/bin"));
    if (editor.isEmpty())
        return;
    a.escribir(QStringLiteral("Datos"), QStringLiteral("Editor"), editor);
    AbrirEnEditor(ruta, a, d);
}

} // namespace

void ConectarAnuales(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form1* t = &tablero;
    auto abrir = [t, &s, &a, &d](TipoEstado tipo) {
        if (FormEstado* f = FormEstado::Abrir(s, a, d, tipo, t))
            t->registrarLibro(f, QStringLiteral("Anuales"));
    };
    tablero.Conectar(QStringLiteral("mnuSituacion"), [abrir] { abrir(TipoEstado::Balance); });
    tablero.Conectar(QStringLiteral("mnuPyG"), [abrir] { abrir(TipoEstado::PyG); });

    tablero.Conectar(QStringLiteral("mnuMemNueva"), [t, &s, &a, &d] {
        try {
            const auto ruta = NuevaMemoria(s, d, [t, &s](const QString& titulo) {
                return QFileDialog::getOpenFileName(t, titulo, QDir::homePath(),
                                                    QStringLiteral("Archivos rtf (*.rtf)"));
            });
            if (ruta)
                Abrir(t, *ruta, a, d);
        } catch (const ErrorQuilmar& e) {
            d.Informar(e.mensaje());
        }
    });
    tablero.Conectar(QStringLiteral("mnuMemElaborar"), [t, &s, &a, &d] {
        if (const auto ruta = ModeloParaEditar(s, d))
            Abrir(t, *ruta, a, d);
    });
    tablero.Conectar(QStringLiteral("mnuMemVer"), [t, &s, &a, &d] {
        std::optional<QString> ruta;
        try {
            QApplication::setOverrideCursor(Qt::WaitCursor);
            struct Cursor {
                ~Cursor() { QApplication::restoreOverrideCursor(); }
            } cursor;
            ruta = GenerarMemoria(s, d);
        } catch (const ErrorQuilmar& e) {
            d.Informar(e.mensaje());
        }
        if (ruta)
            Abrir(t, *ruta, a, d);
    });
    tablero.Conectar(QStringLiteral("mnuFormulas"), [t, &s, &a, &d] {
        try {
            Form14::Abrir(s, a, d, PlanMemoriaDe(s), t);
        } catch (const ErrorQuilmar& e) {
            d.Informar(e.mensaje());
        }
    });
}
