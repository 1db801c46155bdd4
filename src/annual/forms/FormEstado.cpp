#include "annual/forms/FormEstado.h"

#include "annual/ImpresionEstados.h"
#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/ModeloRejilla.h"
#include "platform/forms/TablaRejilla.h"
#include "platform/forms/VistaRejilla.h"
#include "reports/forms/FormOpcionesLibro.h"
#include "store/Conexiones.h"
#include "store/NombreEmpresa.h"
#include "store/Sesion.h"

#include <QAction>
#include <QHeaderView>

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

// Of the statement windows only Form81 keeps its size (WF81, HF81); the others open as designed.
int NumeroTamano(Modelo m) {
    return m == Modelo::Form81 ? 81 : 0;
}

bool EsBalance(Modelo m) {
    return m == Modelo::Form81 || m == Modelo::Form105;
}

} // namespace

FormEstado::FormEstado(Sesion& s, Ajustes& a, Dialogo& d, Modelo modelo, bool desglose,
                       QWidget* padre)
    : VentanaLibro(s, a, d, NumeroTamano(modelo),
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
    if (ConNotas(modelo)) {
        tabla()->ponerEscribible(ColNotas(modelo), LargoNota);
        connect(tabla()->modelo(), &ModeloRejilla::celdaEscrita, this,
                [this](int fila, int, const QString& texto) { EscribirNota(fila, texto); });
    }
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
    tabla()->terminarEdicion();
    // What was typed beside the lines outlives the fill.
    const NotasEstado notas1 = NotasDeLista(estado_.lista1, modelo_);
    const NotasEstado notas2 = NotasDeLista(estado_.lista2, modelo_);
    VentanaLibro::Llenar([&](const Progreso&) {
        estado_ = CalcularEstado(s_, d_, modelo_, desglose_);
        hay = estado_.hayMovimientos;
        PonerNotas(estado_.lista1, modelo_, notas1);
        PonerNotas(estado_.lista2, modelo_, notas2);
        rejilla() = lista_ == 2 && estado_.lista2.Columnas() > 0 ? estado_.lista2 : estado_.lista1;
    });
    AjustarAnchos();
    return hay;
}

void FormEstado::MostrarLista(int lista) {
    if (lista == 2 && estado_.lista2.Columnas() == 0)
        return;
    tabla()->terminarEdicion();
    lista_ = lista;
    rejilla() = lista == 2 ? estado_.lista2 : estado_.lista1;
    vista()->mostrar(&rejilla());
    AjustarAnchos();
}

void FormEstado::EscribirNota(int fila, const QString& texto) {
    const int col = ColNotas(modelo_);
    Rejilla& lista = lista_ == 2 ? estado_.lista2 : estado_.lista1;
    if (col < 0 || fila < 0 || fila >= lista.Filas())
        return;
    const QString nota = TextoNota(texto);
    lista.PonerCelda(fila, col, nota);
    rejilla().PonerCelda(fila, col, nota);
}

void FormEstado::AjustarAnchos() {
    TablaRejilla* t = tabla();
    const Rejilla& r = rejilla();
    if (r.Columnas() <= ColEstSubcuenta)
        return;
    const int sangria = t->fontMetrics().horizontalAdvance(QStringLiteral("MMM"));
    const int holgura = 2 * t->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, t) + 14;
    const QFontMetrics cabecera = t->horizontalHeader()->fontMetrics();
    // The first column carries the list's heading ("A C T I V O") above it.
    int anchos[ColEstSubcuenta];
    for (int c = ColEstNivel1; c < ColEstSubcuenta; ++c) {
        anchos[c] = qMax(sangria, cabecera.horizontalAdvance(r.columna(c).titulo) + holgura);
        t->setColumnWidth(c, anchos[c]);
    }
    QFont negrita = t->font();
    negrita.setBold(true);
    const QFontMetrics normal(t->font()), gruesa(negrita);
    int ancho = cabecera.horizontalAdvance(r.columna(ColEstSubcuenta).titulo);
    for (int f = 0; f < r.Filas(); ++f) {
        const auto tramo = r.Combinada(f);
        const int desde = tramo ? tramo->desde : ColEstSubcuenta;
        const QString texto = r.Celda(f, desde);
        if (texto.isEmpty())
            continue;
        int w = (r.Negrita(f, desde) ? gruesa : normal).horizontalAdvance(texto);
        // The level columns the label spreads over already give it their width.
        for (int c = desde; c < ColEstSubcuenta; ++c)
            w -= anchos[c];
        ancho = qMax(ancho, w);
    }
    t->setColumnWidth(ColEstSubcuenta, ancho + holgura);
    // Room for a whole note.
    if (const int notas = ColNotas(modelo_); notas >= 0)
        t->setColumnWidth(notas,
                          qMax(t->columnWidth(notas),
                               normal.horizontalAdvance(QString(LargoNota, u'0')) + holgura));
}

void FormEstado::Refrescar() {
    if (isVisible())
        Llenar();
}

void FormEstado::Imprimir() {
    tabla()->terminarEdicion();
    FormOpcionesLibro f(ConfigFormOpciones(FormOpciones::Form83, ModoImpresion(modelo_)), a_, d_,
                        this);
    f.exec();
    opciones_ = f.opciones();
    if (opciones_.cancelado || !estado_.hayMovimientos)
        return;
    try {
        const QString empresa = NombreEmpresa(s_);
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
