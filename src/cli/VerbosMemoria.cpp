// The notes to the accounts from the command line: the formula file, a new model, the notes.

#include "annual/FormulasMemoria.h"
#include "annual/Memoria.h"
#include "cli/Cli.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "store/Sesion.h"

#include <QDir>

namespace {

PlanMemoria planPedido(ContextoCli& c) {
    const QString p = c.opcion(QStringLiteral("plan")).trimmed().toLower();
    if (p.isEmpty())
        return PlanMemoriaDe(c.sesion);
    if (p == QLatin1String("antiguo"))
        return PlanMemoria::Antiguo;
    if (p == QLatin1String("nuevo"))
        return PlanMemoria::Nuevo;
    throw Rechazo(QStringLiteral("El plan debe ser 'antiguo' o 'nuevo'."));
}

int listar(ContextoCli& c) {
    c.abrirEmpresa();
    const PlanMemoria p = planPedido(c);
    if (!AsegurarFormulas(c.sesion, p, c.dialogo))
        return 1;
    QList<QStringList> filas;
    QStringList cabecera{QStringLiteral("Nombre"), QStringLiteral("Tipo"),
                         QStringLiteral("Periodo")};
    if (p == PlanMemoria::Nuevo)
        cabecera << QStringLiteral("Ejercicio");
    cabecera << QStringLiteral("Contenido");
    filas << cabecera;
    for (const FormulaMemoria& f : LeerFormulas(RutaFormulas(c.sesion, p))) {
        QStringList fila{f.Nombre, f.Tipo};
        if (p == PlanMemoria::Nuevo)
            fila << PeriodoDeGuardado(f.Periodo)
                 << (f.Tipo == TipoTexto ? QString() : EjercicioDePeriodo(f.Periodo));
        else
            fila << f.Periodo;
        fila << f.Contenido;
        filas << fila;
    }
    ImprimirFilas(c.salida, filas);
    return 0;
}

int formula(ContextoCli& c) {
    QString nombre = c.posicionales.value(0).trimmed();
    if (nombre.startsWith(u'F', Qt::CaseInsensitive))
        nombre = nombre.mid(1);
    c.abrirEmpresa();
    const PlanMemoria p = planPedido(c);
    if (!AsegurarFormulas(c.sesion, p, c.dialogo))
        return 1;
    const QString ruta = RutaFormulas(c.sesion, p);
    if (c.bandera(QStringLiteral("eliminar"))) {
        if (nombre.size() != 3)
            throw Rechazo(MsgNombreFormula);
        return EliminarFormula(ruta, QLatin1Char('F') + nombre, c.dialogo) ? 0 : 1;
    }
    EntradaFormula e;
    e.digitos = nombre;
    e.tipo = c.opcion(QStringLiteral("tipo")).trimmed();
    e.periodo = c.opcion(QStringLiteral("periodo")).trimmed();
    if (e.tipo == TipoTexto && e.periodo.isEmpty())
        e.periodo = PeriodoNinguno;
    e.ejercicio = EjercicioDePeriodo(e.periodo);
    e.contenido = c.opcion(QStringLiteral("contenido"));
    if (const auto error = ComprobarFormula(e, p))
        throw Rechazo(error->mensaje);
    return GuardarFormula(ruta, p, FormulaDeEntrada(e), c.dialogo) ? 0 : 1;
}

// The questions of a new model, answered from the options: the shipped model unless --modelo
// names one; the others (replacing the exercise's model) by --si.
class DialogoNueva : public Dialogo {
public:
    DialogoNueva(Dialogo& d, bool predeterminado) : d_(d), predeterminado_(predeterminado) {}
    void Informar(const QString& t) override { d_.Informar(t); }
    bool Preguntar(const QString& t) override {
        return t == PreguntaModeloPredeterminado ? predeterminado_ : d_.Preguntar(t);
    }
    QString PedirTexto(const QString& t, const QString& defecto) override {
        return d_.PedirTexto(t, defecto);
    }

private:
    Dialogo& d_;
    bool predeterminado_;
};

int nueva(ContextoCli& c) {
    c.abrirEmpresa();
    const QString modelo = c.opcion(QStringLiteral("modelo")).trimmed();
    DialogoNueva d(c.dialogo, modelo.isEmpty());
    const auto ruta = NuevaMemoria(c.sesion, d, [&modelo](const QString&) {
        return QDir::current().absoluteFilePath(modelo);
    });
    if (!ruta)
        return 1;
    c.salida << QDir::toNativeSeparators(*ruta) << '\n';
    return 0;
}

int elaborar(ContextoCli& c) {
    c.abrirEmpresa();
    const auto ruta = GenerarMemoria(c.sesion, c.dialogo, false);
    if (!ruta)
        return 1;
    c.salida << QDir::toNativeSeparators(*ruta) << '\n';
    return 0;
}

const QString AyudaPlan = QStringLiteral(
    "Hasta 2007, y desde 2008 mientras el plan contable no se haya adaptado al de 2007, las\n"
    "fórmulas del plan antiguo (Fmemor.dat, Fmemor8.dat desde 2008); con el plan de 2007,\n"
    "Fmemor8np.dat. --plan antiguo|nuevo elige otro archivo. Cada empresa tiene su copia,\n"
    "tomada de la carpeta del programa la primera vez.\n");

const AltaVerbo altaFormulas{
    {QStringLiteral("formulas-memoria"),
     QStringLiteral("lista las fórmulas de la Memoria"),
     QStringLiteral("Uso: quilmar-cli formulas-memoria [--plan antiguo|nuevo]\n\n") + AyudaPlan,
     {},
     listar}};

const AltaVerbo altaFormula{
    {QStringLiteral("formula-memoria"),
     QStringLiteral("añade, cambia o elimina una fórmula de la Memoria"),
     QStringLiteral(
         "Uso: quilmar-cli formula-memoria FNNN --tipo Importe|Texto --periodo PERIODO\n"
         "        --contenido TEXTO [--plan antiguo|nuevo] [--si]\n"
         "     quilmar-cli formula-memoria FNNN --eliminar --si\n\n"
         "Periodos: \"Año N\" y \"Fecha inicial\"; con el plan de 2007 también \"Año N-1\",\n"
         "\"Fecha Final\" y \"Año\". Un Texto lleva el periodo \"Ninguno\". En un Importe,\n"
         "<FNNN> es el valor de otra fórmula y <SNNN> el saldo de la cuenta NNN; se admiten\n"
         "+ - * / y paréntesis. Con el plan de 2007, --si sustituye una fórmula que ya "
         "existe.\n\n") +
         AyudaPlan,
     {QStringLiteral("eliminar")},
     formula}};

const AltaVerbo altaNueva{
    {QStringLiteral("memoria-nueva"),
     QStringLiteral("crea el modelo de Memoria del ejercicio"),
     QStringLiteral(
         "Uso: quilmar-cli memoria-nueva [--modelo FICHERO.rtf] [--si]\n\n"
         "Copia en la carpeta de la empresa, como Memabrev<año>.rtf, el modelo de Memoria para\n"
         "PYMES del programa (del plan antiguo o del de 2007) o el documento rtf de --modelo.\n"
         "Si el ejercicio ya tiene modelo, sólo lo sustituye con --si. Muestra su ruta.\n"),
     {},
     nueva}};

const AltaVerbo altaElaborar{
    {QStringLiteral("memoria-elaborar"),
     QStringLiteral("genera la Memoria del ejercicio desde su modelo"),
     QStringLiteral(
         "Uso: quilmar-cli memoria-elaborar\n\n"
         "Sustituye cada <FNNN> del modelo Memabrev<año>.rtf por el valor de su fórmula y\n"
         "escribe Memoria<año>.rtf en la carpeta de la empresa; muestra su ruta. Los saldos\n"
         "son los de antes del cierre y la contabilidad no cambia.\n"),
     {},
     elaborar}};

} // namespace
