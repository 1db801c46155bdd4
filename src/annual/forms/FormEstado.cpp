#include "annual/forms/FormEstado.h"

#include "annual/ImpresionEstados.h"
#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/VistaRejilla.h"
#include "reports/forms/FormOpcionesLibro.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"

#include <QAction>

namespace {

QString NombreForm(Modelo m) {
    switch (m) {
    case Modelo::Form81:
        return QStringLiteral("Form81");
    case Modelo::Form105:
        return QStringLiteral("Form105");
    case Modelo::Form82:
        return QStringLiteral("Form82");
    case Modelo::Form106:
        break;
    }
    return QStringLiteral("Form106");
}

int NumeroForm(Modelo m) {
    return NombreForm(m).mid(4).toInt();
}

bool EsBalance(Modelo m) {
    return m == Modelo::Form81 || m == Modelo::Form105;
}

} // namespace

FormEstado::FormEstado(Sesion& s, Ajustes& a, Dialogo& d, Modelo modelo, bool desglose,
                       QWidget* padre)
    : VentanaLibro(s, a, d, NumeroForm(modelo),
                   EsBalance(modelo) ? QStringLiteral("Quilmar [Balance de Situación]")
                                     : QStringLiteral("Quilmar [Pérdidas y Ganancias]"),
                   padre),
      modelo_(modelo), desglose_(desglose) {
    setObjectName(NombreForm(modelo));
    const bool balance = EsBalance(modelo);
    QAction* uno = nuevaAccion(QStringLiteral("Command1"),
                               balance ? QStringLiteral("&Activo") : QStringLiteral("&Debe"),
                               std::nullopt, [this] { MostrarLista(1); });
    QAction* dos = nuevaAccion(QStringLiteral("Command2"),
                               balance ? QStringLiteral("&Pasivo") : QStringLiteral("&Haber"),
                               std::nullopt, [this] { MostrarLista(2); });
    QAction* imprimir = nuevaAccion(QStringLiteral("Command3"), QStringLiteral("&Imprimir"),
                                    Accion::Imprimir, [this] { Imprimir(); });
    QAction* ayuda =
        nuevaAccion(QStringLiteral("Command4"), QStringLiteral("Ayuda"), Accion::Ayuda, [] {});
    ayuda->setEnabled(false);
    accionExportar()->setObjectName(QStringLiteral("Command6"));
    accionCerrar()->setObjectName(QStringLiteral("Command5"));
    if (modelo == Modelo::Form106) {
        // One list only.
        ponerBarra({{1, accionCerrar()},
                    {3, accionCopiar()},
                    {4, imprimir},
                    {5, accionExportar()},
                    {7, ayuda}});
        uno->setEnabled(false);
        dos->setEnabled(false);
    } else {
        ponerBarra({{1, accionCerrar()},
                    {3, uno},
                    {4, dos},
                    {6, accionCopiar()},
                    {7, imprimir},
                    {8, accionExportar()},
                    {10, ayuda}});
    }
    alMenu(imprimir);
    estado_.modelo = modelo;
    rejilla() = RejillaEstado(modelo, s.AnoActual, false);
}

FormEstado::~FormEstado() = default;

FormEstado* FormEstado::Abrir(Sesion& s, Ajustes& a, Dialogo& d, TipoEstado tipo, QWidget* padre) {
    const Modelo m = ModeloEstado(tipo, s.AnoActual);
    const bool desglose = DesgloseObligado(m) || d.Preguntar(PreguntaDesglose);
    auto* f = new FormEstado(s, a, d, m, desglose, padre);
    f->setAttribute(Qt::WA_DeleteOnClose);
    f->show();
    if (!f->Llenar()) {
        f->close();
        return nullptr;
    }
    return f;
}

bool FormEstado::Llenar() {
    bool hay = false;
    VentanaLibro::Llenar([this, &hay](const Progreso&) {
        estado_ = CalcularEstado(s_, d_, modelo_, desglose_);
        hay = estado_.hayMovimientos;
        rejilla() = lista_ == 2 && estado_.lista2.Columnas() > 0 ? estado_.lista2 : estado_.lista1;
    });
    return hay;
}

void FormEstado::MostrarLista(int lista) {
    if (lista == 2 && estado_.lista2.Columnas() == 0)
        return;
    lista_ = lista;
    rejilla() = lista == 2 ? estado_.lista2 : estado_.lista1;
    vista()->mostrar(&rejilla());
}

void FormEstado::Refrescar() {
    if (isVisible())
        Llenar();
}

void FormEstado::Imprimir() {
    FormOpcionesLibro f(ConfigFormOpciones(FormOpciones::Form83), a_, d_, this);
    f.exec();
    opciones_ = f.opciones();
    if (opciones_.cancelado || !estado_.hayMovimientos)
        return;
    try {
        QString empresa;
        {
            Conexion c = AbrirDatos(s_);
            empresa = c.escalar(QStringLiteral("SELECT Nombre FROM Empresa LIMIT 1"))
                          .toString()
                          .trimmed();
        }
        const EstadoCuentas estado = estado_;
        const QDate desde = s_.FechaIniEj, hasta = s_.FechaFinEj;
        const OpcionesLibro op = opciones_;
        OpcionesImpresion oi;
        oi.titulo = TituloEstado(estado);
        oi.impresora = a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"));
        ImprimirLibro(
            this,
            [=](Impresora& imp, int) { DibujarEstado(imp, estado, empresa, desde, hasta, op); },
            oi);
    } catch (const ErrorQuilmar&) {
        // A failed run ends without a further message.
    }
}
