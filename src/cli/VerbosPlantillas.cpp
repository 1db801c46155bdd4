// Verbs of periodic and predesigned entries: making, listing, showing and deleting them, posting
// the periodic entries that fall due, and filling a template into an entry.

#include "cli/Cli.h"
#include "cli/SalidaLibro.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "posting/CapturaIva.h"
#include "posting/ContAsPer.h"
#include "posting/EditorPredisenado.h"
#include "posting/EstadoTablero.h"
#include "posting/GestionAsientos.h"
#include "posting/ListadosPlantillas.h"
#include "posting/Periodicos.h"
#include "posting/Predisenados.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/NombreEmpresa.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QHash>
#include <QSet>
#include <utility>

namespace {

QString corta(const QDate& f) {
    return FormatoFecha(f, QStringLiteral("short date"));
}

// --hoy in place of today's date.
QDate hoyDe(ContextoCli& c) {
    return FechaOpcion(c, QStringLiteral("hoy"), QDate::currentDate());
}

// The questions of the screens answered by the command line, and the name asked given once.
class DialogoNombre : public Dialogo {
public:
    DialogoNombre(Dialogo& d, const QString& nombre) : d_(d), nombre_(nombre) {}
    void Informar(const QString& texto) override { d_.Informar(texto); }
    bool Preguntar(const QString& texto) override { return d_.Preguntar(texto); }
    QString PedirTexto(const QString&, const QString&) override {
        // A name refused is not asked again: the command ends.
        return std::exchange(nombre_, QString());
    }

private:
    Dialogo& d_;
    QString nombre_;
};

class PeriodicidadFija : public PantallaPeriodicidad {
public:
    PeriodicidadFija(qint16 periodicidad, QDate proxima)
        : periodicidad_(periodicidad), proxima_(proxima) {}
    EleccionPeriodicidad Elegir(const QString&, const QDate& fecha) override {
        // What the screen offers beside the rhythm chosen: the entry's date plus its step.
        return {proxima_.isValid() ? proxima_ : PasoPeriodicidad(fecha, periodicidad_),
                periodicidad_};
    }

private:
    qint16 periodicidad_;
    QDate proxima_;
};

QString listaRitmos() {
    QStringList r;
    for (const RitmoPeriodico& x : Ritmos())
        r << x.nombre.toLower();
    return r.join(QStringLiteral(", "));
}

int periodicoCrear(ContextoCli& c) {
    const QString nombre = c.posicionales.value(0);
    if (nombre.trimmed().isEmpty())
        throw Rechazo(QStringLiteral("Indique el nombre: quilmar-cli periodico-crear NOMBRE "
                                     "--asiento N --ritmo RITMO"));
    bool ok = false;
    const long nas = c.opcion(QStringLiteral("asiento")).trimmed().toLong(&ok);
    if (!ok || nas <= 0)
        throw Rechazo(QStringLiteral("Indique el asiento del que se hace: --asiento N."));
    const std::optional<qint16> periodicidad =
        PeriodicidadDeNombre(c.opcion(QStringLiteral("ritmo")));
    if (!periodicidad)
        throw Rechazo(
            QStringLiteral("Indique la periodicidad con --ritmo: %1.").arg(listaRitmos()));
    QDate proxima;
    if (c.tiene(QStringLiteral("proxima"))) {
        proxima = FechaDeTexto(ValidarFecha(c.opcion(QStringLiteral("proxima")), c.dialogo));
        if (!proxima.isValid())
            return 1;
    }
    c.abrirEmpresa();
    QDate fecha;
    QString sector;
    const auto lineas = LineasDeAsiento(c.sesion, nas, fecha, sector);
    if (!lineas)
        throw Rechazo(QStringLiteral("No se encontró el Asiento nº %1.").arg(nas));
    // As from the maintenance screen: only a balanced entry.
    double debe = 0, haber = 0;
    for (const LineaPeriodico& l : *lineas) {
        debe += Centimos(l.Debe);
        haber += Centimos(l.Haber);
    }
    if (Centimos(debe - haber) != 0)
        throw Rechazo(QStringLiteral("El asiento está descuadrado"));
    DialogoNombre d(c.dialogo, nombre);
    PeriodicidadFija form59(*periodicidad, proxima);
    if (!HacerPeriodico(c.sesion, d, form59, QStringLiteral("F7"), fecha, sector, *lineas))
        return 1;
    Conexion bavar = AbrirBavar(c.sesion);
    const auto a = LeerPeriodico(bavar, nombre);
    if (!a)
        return 1;
    c.salida << QStringLiteral("Asiento periódico \"%1\": %2, próxima fecha %3.\n")
                    .arg(a->Nombre, NombreRitmo(a->Periodicidad), corta(a->FechaProx));
    return 0;
}

// The run of the start-up from the command line: "all" wherever it is offered.
class PantallasPeriodicosCli : public PantallasPeriodicos {
public:
    QList<PendientePeriodico> conIva;
    AccionForm61 Confirmar(const QString& nombre, const QDate& fecha, bool todos) override {
        if (todos)
            return AccionForm61::ContabilizarTodos;
        conIva << PendientePeriodico{nombre, fecha, MotivoIva};
        return AccionForm61::NoContabilizar;
    }
    long ContabilizarEnForm4(const AsientoPeriodico&) override { return 0; }
};

int periodicos(ContextoCli& c) {
    const bool pendientes = c.bandera(QStringLiteral("pendientes"));
    const bool contabilizar = c.bandera(QStringLiteral("contabilizar"));
    if (pendientes && contabilizar)
        throw Rechazo(QStringLiteral("Elija --pendientes o --contabilizar, no los dos."));
    const QDate hoy = hoyDe(c);
    c.abrirEmpresa();
    Sesion& s = c.sesion;
    if (pendientes) {
        QList<QStringList> filas{{QStringLiteral("Nombre"), QStringLiteral("Fecha"),
                                  QStringLiteral("Periodicidad"), QStringLiteral("IVA")}};
        Conexion bavar = AbrirBavar(s);
        for (const AsientoPeriodico& a : LeerPeriodicos(bavar))
            for (const QDate& f : FechasPendientes(a, hoy, s.FechaFinEj))
                filas << QStringList{a.Nombre, corta(f), NombreRitmo(a.Periodicidad),
                                     TieneLineasIva(a) ? QStringLiteral("sí") : QString()};
        ImprimirFilas(c.salida, filas);
        return 0;
    }
    if (contabilizar) {
        if (!c.dialogo.Preguntar(QStringLiteral("Se van a contabilizar los asientos periódicos "
                                                "pendientes a fecha %1. Desea continuar?")
                                     .arg(corta(hoy))))
            return 1;
        PantallasPeriodicosCli pantallas;
        EstadoTablero tablero;
        const ResultadoContAsPer r = ContAsPer(s, c.dialogo, tablero, pantallas, hoy);
        QList<QStringList> filas;
        for (const PosteoPeriodico& p : r.Contabilizados)
            filas << QStringList{QStringLiteral("Contabilizado"), p.Nombre, corta(p.Fecha),
                                 QString::number(p.Numero)};
        for (const PendientePeriodico& p : pantallas.conIva + r.Pendientes)
            filas << QStringList{QStringLiteral("Pendiente"), p.Nombre, corta(p.Fecha), p.Motivo};
        ImprimirFilas(c.salida, filas);
        return r.Detenido ? 1 : 0;
    }
    const ConfigOpciones config = ConfigFormOpciones(FormOpciones::FORM90, QStringLiteral("Predi"));
    const OpcionesLibro op = OpcionesImpresionCli(c, config);
    Rejilla r = RejillaPeriodicos();
    {
        Conexion bavar = AbrirBavar(s);
        LlenarPeriodicos(bavar, r);
    }
    LibroCli libro;
    libro.titulo = TituloListaPeriodicos;
    libro.rejilla = [&] {
        return r;
    };
    libro.dibujo = DibujoListaPeriodicos(r, NombreEmpresa(s), op);
    return SalidaLibroCli(c, libro);
}

std::optional<AsientoPeriodico> periodicoDe(ContextoCli& c, const QString& uso) {
    const QString nombre = c.posicionales.value(0);
    if (nombre.trimmed().isEmpty())
        throw Rechazo(QStringLiteral("Indique el nombre: %1").arg(uso));
    c.abrirEmpresa();
    Conexion bavar = AbrirBavar(c.sesion);
    auto a = LeerPeriodico(bavar, nombre);
    if (!a)
        throw Rechazo(
            QStringLiteral("No existe el asiento periódico \"%1\".").arg(nombre.trimmed()));
    return a;
}

int periodicoVer(ContextoCli& c) {
    const auto a = periodicoDe(c, QStringLiteral("quilmar-cli periodico-ver NOMBRE"));
    c.salida << QStringLiteral("Asiento periódico\t") << a->Nombre << '\n'
             << QStringLiteral("Periodicidad\t") << NombreRitmo(a->Periodicidad) << '\n'
             << QStringLiteral("Fecha inicial\t") << corta(a->FechaIni) << '\n'
             << QStringLiteral("Fecha próximo vencimiento\t") << corta(a->FechaProx) << '\n'
             << QStringLiteral("Sector\t") << a->Sector << '\n';
    QList<QStringList> filas{{QStringLiteral("NCuenta"), QStringLiteral("Cuenta"),
                              QStringLiteral("Concepto"), QStringLiteral("Debe"),
                              QStringLiteral("Haber"), QStringLiteral("Documento")}};
    Conexion datos = AbrirDatos(c.sesion);
    for (const LineaPeriodico& l : a->Lineas) {
        const QString cuenta =
            datos
                .escalar(QStringLiteral("SELECT Cuenta FROM Cuentas WHERE NCuenta = ?"),
                         {l.NCuenta})
                .toString()
                .trimmed();
        filas << QStringList{l.NCuenta,
                             cuenta,
                             l.Concepto,
                             l.Debe != 0 ? Formato(l.Debe, QStringLiteral("standard")) : QString(),
                             l.Haber != 0 ? Formato(l.Haber, QStringLiteral("standard"))
                                          : QString(),
                             l.Documento};
    }
    ImprimirFilas(c.salida, filas);
    return 0;
}

int periodicoEliminar(ContextoCli& c) {
    const auto a = periodicoDe(c, QStringLiteral("quilmar-cli periodico-eliminar NOMBRE --si"));
    if (!EliminarPeriodicoPreguntando(c.sesion, c.dialogo, a->Nombre))
        return 1;
    c.salida << QStringLiteral("Se eliminó el asiento periódico \"%1\".\n").arg(a->Nombre);
    return 0;
}

// ---- Predesigned entries ------------------------------------------------------------------

int codigoDe(const QString& texto) {
    const std::optional<int> codigo = LeerCodigoPredi(texto);
    if (!codigo)
        throw Rechazo(MsgCodigoTresCifras);
    return *codigo;
}

bool siNo(const QString& texto, const QString& que) {
    const QString t = texto.trimmed().toLower();
    if (t.isEmpty() || t == QLatin1String("no"))
        return false;
    if (t == QLatin1String("si") || t == QStringLiteral("sí"))
        return true;
    throw Rechazo(QStringLiteral("En --linea, %1 tiene que ser si o no: '%2'.").arg(que, texto));
}

int predisenadoCrear(ContextoCli& c) {
    const QString codigo = c.posicionales.value(0);
    const QStringList lineas = c.opciones(QStringLiteral("linea"));
    c.abrirEmpresa();
    EditorPredisenado e(c.sesion, c.dialogo);
    e.Codigo = codigo;
    e.Nombre = c.opcion(QStringLiteral("nombre"));
    for (int i = 0; i < lineas.size(); ++i) {
        const QStringList celdas = lineas[i].split(QLatin1Char(';'));
        if (celdas.size() < 10 || celdas.size() > 13)
            throw Rechazo(QStringLiteral("--linea se escribe \"D|H;fecha;subcuenta;concepto;"
                                         "importe;sector;documento;base;cliente;factura"
                                         "[;libro;m347[;comentario]]\": '%1'.")
                              .arg(lineas[i]));
        if (i > 0) {
            if (e.Lineas.size() >= MaxApuntesPredi)
                throw Rechazo(QStringLiteral("Un Asiento Prediseñado no puede tener más de nueve "
                                             "apuntes."));
            e.NuevoAp();
        }
        e.DH = celdas[0].trimmed().toUpper();
        for (int k = 0; k < CampoPredi::Total; ++k) {
            const QString celda = celdas[1 + k].trimmed();
            e.Campos[k] = {TipoDeCelda(celda), ValorDeCelda(celda)};
        }
        e.LibroIVA = siNo(celdas.value(10), QStringLiteral("libro"));
        e.Mod347 = siNo(celdas.value(11), QStringLiteral("m347"));
        e.Coment = celdas.value(12);
        if (!e.AnadirAp())
            return 1;
    }
    if (!e.Guardar())
        return 1;
    c.salida << QStringLiteral("Guardado el Asiento Prediseñado %1, %2: %3 apuntes.\n")
                    .arg(e.Codigo.trimmed(), e.Nombre.trimmed())
                    .arg(e.Lineas.size());
    return 0;
}

int predisenados(ContextoCli& c) {
    c.abrirEmpresa();
    const ConfigOpciones config = ConfigFormOpciones(FormOpciones::FORM90, QStringLiteral("Predi"));
    const OpcionesLibro op = OpcionesImpresionCli(c, config);
    Rejilla r = RejillaPredisenados();
    {
        Conexion bavar = AbrirBavar(c.sesion);
        LlenarPredisenados(bavar, r);
    }
    LibroCli libro;
    libro.titulo = TituloListaPredisenados;
    libro.rejilla = [&] {
        return r;
    };
    libro.dibujo = DibujoListaPredisenados(r, NombreEmpresa(c.sesion), op);
    return SalidaLibroCli(c, libro);
}

int predisenadoEliminar(ContextoCli& c) {
    const int codigo = codigoDe(c.posicionales.value(0));
    c.abrirEmpresa();
    std::optional<Predisenado> p;
    {
        Conexion bavar = AbrirBavar(c.sesion);
        p = LeerPredisenado(bavar, codigo);
    }
    if (!p)
        throw Rechazo(MsgNoExistePredisenado);
    if (!EliminarPredisenadoPreguntando(c.sesion, c.dialogo, codigo, p->Nombre))
        return 1;
    c.salida << QStringLiteral("Se eliminó el asiento prediseñado %1, %2.\n")
                    .arg(CodigoPredi(codigo), p->Nombre);
    return 0;
}

// The asked fields answered from --valor CAMPO=VALOR, or with their defaults.
class PantallaApunteCli : public PantallaApunte {
public:
    PantallaApunteCli(const Sesion& s, Dialogo& d, QHash<QString, QString> valores,
                      const QDate& hoy)
        : s_(s), d_(d), valores_(std::move(valores)), hoy_(hoy) {}

    bool Pedir(TrabajoPredisenado& t, int linea) override {
        RespuestasApunte r(t, linea, hoy_);
        for (int k = 0; k < CampoPredi::Total; ++k) {
            if (!r.Variable[k])
                continue;
            const QString nombre = r.NombreCampo(k).toUpper();
            if (valores_.contains(nombre)) {
                r.Valores[k] = valores_.value(nombre);
                usados.insert(nombre);
            } else if (r.Valores[k].trimmed().isEmpty()) {
                throw Rechazo(QStringLiteral("Falta el valor del campo %1 (%2 del Apunte %3): "
                                             "añada --valor %1=VALOR.")
                                  .arg(nombre, TituloCampoPredi(k), r.Etiqueta));
            }
        }
        return r.Aceptar(s_, d_);
    }
    QSet<QString> usados;

private:
    const Sesion& s_;
    Dialogo& d_;
    QHash<QString, QString> valores_;
    QDate hoy_;
};

// The VAT screen of a posted template: it takes what the template offers and accepts.
class PantallaIvaPredisenado : public PantallaIva {
public:
    bool rechazada = false;
    void Mostrar(CapturaIva& c) override {
        c.PrimeraVista();
        if (!c.Aceptar())
            rechazada = true;
    }
};

int predisenado(ContextoCli& c) {
    const int codigo = codigoDe(c.posicionales.value(0));
    QHash<QString, QString> valores;
    for (const QString& v : c.opciones(QStringLiteral("valor"))) {
        const int igual = static_cast<int>(v.indexOf(QLatin1Char('=')));
        if (igual <= 0)
            throw Rechazo(QStringLiteral("--valor se escribe CAMPO=VALOR, por ejemplo "
                                         "C13=121,50: '%1'.")
                              .arg(v));
        valores.insert(v.left(igual).trimmed().toUpper(), v.mid(igual + 1));
    }
    const QDate hoy = hoyDe(c);
    c.abrirEmpresa();
    PantallaApunteCli pantalla(c.sesion, c.dialogo, valores, hoy);
    const std::optional<AsientoPredisenado> a = AsTipo(c.sesion, c.dialogo, pantalla, codigo, hoy);
    if (!a)
        return 1;
    for (auto it = valores.cbegin(); it != valores.cend(); ++it)
        if (!pantalla.usados.contains(it.key()))
            throw Rechazo(QStringLiteral("El campo %1 no se pide en el asiento prediseñado %2.")
                              .arg(it.key(), CodigoPredi(codigo)));

    QList<QStringList> filas{
        {QStringLiteral("Fecha"), QStringLiteral("NCuenta"), QStringLiteral("Cuenta"),
         QStringLiteral("Concepto"), QStringLiteral("Debe"), QStringLiteral("Haber"),
         QStringLiteral("Documento"), QStringLiteral("Sector"), QStringLiteral("Cliente/Proveedor"),
         QStringLiteral("Factura"), QStringLiteral("Base")}};
    {
        Conexion datos = AbrirDatos(c.sesion);
        for (const LineaF7& l : a->Lineas) {
            const QString cuenta =
                datos
                    .escalar(QStringLiteral("SELECT Cuenta FROM Cuentas WHERE NCuenta = ?"),
                             {l.NCuenta})
                    .toString()
                    .trimmed();
            filas << QStringList{
                corta(a->Fecha),
                l.NCuenta,
                cuenta,
                l.Concepto,
                l.Debe != 0 ? Formato(l.Debe, QStringLiteral("standard")) : QString(),
                l.Haber != 0 ? Formato(l.Haber, QStringLiteral("standard")) : QString(),
                l.Documento,
                l.Sector,
                l.Contra,
                l.Factura,
                l.Base};
        }
    }
    ImprimirFilas(c.salida, filas);
    // A CUADRE that came out negative stays on its side: the difference is shown, and posting
    // refuses it as the maintenance screen does.
    double debe = 0, haber = 0;
    for (const LineaF7& l : a->Lineas) {
        debe += l.Debe;
        haber += l.Haber;
    }
    if (Centimos(debe - haber) != 0)
        c.salida << QStringLiteral("Descuadre\t")
                 << Formato(debe - haber, QStringLiteral("standard")) << '\n';
    if (!c.bandera(QStringLiteral("contabilizar")))
        return 0;

    // Posted as the maintenance screen posts a new entry, with its checks.
    GestionAsientos k(c.sesion, c.dialogo);
    PantallaIvaPredisenado iva;
    k.Pantalla = &iva;
    k.NuevoConLineas(a->Lineas, a->Fecha);
    const ResultadoF7 r = k.Pulsar();
    if (r.tipo != ResultadoF7::Tipo::Guardado)
        return 1;
    c.salida << QStringLiteral("Contabilizado el asiento nº %1.\n").arg(r.numero);
    return 0;
}

const AltaVerbo altas[]{
    AltaVerbo{{QStringLiteral("periodico-crear"),
               QStringLiteral("hace un asiento periódico de un asiento contabilizado"),
               QStringLiteral(
                   "Uso: quilmar-cli periodico-crear NOMBRE --asiento N --ritmo RITMO "
                   "[--proxima FECHA] --si\n\n"
                   "Guarda las líneas del asiento N como asiento periódico, para que se "
                   "contabilice en cada\nfecha que le toque. RITMO es diaria, semanal, quincenal, "
                   "mensual, bimensual, trimestral,\nsemestral o anual. La próxima fecha es, si no "
                   "se indica, la del asiento más un periodo.\nEl nombre (hasta 30 caracteres) no "
                   "puede repetirse."),
               {},
               periodicoCrear}},
    AltaVerbo{{QStringLiteral("periodicos"),
               QStringLiteral("los asientos periódicos: lista, pendientes o contabilizarlos"),
               QStringLiteral(
                   "Uso: quilmar-cli periodicos [--formato txt|csv|xlsx|pdf] [--salida FICHERO]\n"
                   "     quilmar-cli periodicos --pendientes [--hoy FECHA]\n"
                   "     quilmar-cli periodicos --contabilizar --si [--hoy FECHA]\n\n"
                   "Sin opciones, la lista: fecha inicial, próxima fecha, nombre y periodicidad.\n"
                   "--pendientes muestra cada fecha en que vence un asiento hasta hoy (y no más "
                   "allá del\nfin del ejercicio). --contabilizar contabiliza todas esas fechas, "
                   "asiento por asiento, como\nal arrancar el programa con \"Contabilizar todos\", "
                   "y muestra los números; un asiento con\nlíneas de IVA se deja pendiente para "
                   "contabilizarlo en pantalla. --hoy sustituye la\nfecha de hoy.\n\n") +
                   AyudaSalidaLibro,
               {QStringLiteral("pendientes"), QStringLiteral("contabilizar")},
               periodicos}},
    AltaVerbo{{QStringLiteral("periodico-ver"),
               QStringLiteral("las líneas de un asiento periódico"),
               QStringLiteral("Uso: quilmar-cli periodico-ver NOMBRE"),
               {},
               periodicoVer}},
    AltaVerbo{{QStringLiteral("periodico-eliminar"),
               QStringLiteral("elimina un asiento periódico"),
               QStringLiteral("Uso: quilmar-cli periodico-eliminar NOMBRE --si"),
               {},
               periodicoEliminar}},
    AltaVerbo{{QStringLiteral("predisenado-crear"),
               QStringLiteral("escribe un asiento prediseñado"),
               QStringLiteral(
                   "Uso: quilmar-cli predisenado-crear CODIGO --nombre NOMBRE\n"
                   "        --linea \"D|H;fecha;subcuenta;concepto;importe;sector;documento;base;"
                   "cliente;factura[;libro;m347[;comentario]]\" ... [--si]\n\n"
                   "Una --linea por apunte, en orden (C1, C2, ... hasta C9). Cada campo es una "
                   "celda:\n"
                   "  un valor fijo (fecha dd/mm/aa; subcuenta y cliente por su código), "
                   "VARIABLE,\n"
                   "  V=valor (se pide, con ese valor propuesto), ANTERIOR (el del apunte de "
                   "antes),\n"
                   "  DEL DIA (la fecha de hoy), F=fórmula (F=C17, o en importe y base F=C13*0,21) "
                   "o\n"
                   "  CUADRE (el importe del último apunte que cuadra el asiento).\n"
                   "libro y m347 (si/no) marcan el apunte para el Libro de IVA y el Mod. 347. Un "
                   "código\nque ya existe se sobrescribe con --si."),
               {},
               predisenadoCrear}},
    AltaVerbo{{QStringLiteral("predisenados"),
               QStringLiteral("la lista de asientos prediseñados"),
               QStringLiteral("Uso: quilmar-cli predisenados [--formato txt|csv|xlsx|pdf] "
                              "[--salida FICHERO]\n\n") +
                   AyudaSalidaLibro,
               {},
               predisenados}},
    AltaVerbo{{QStringLiteral("predisenado-eliminar"),
               QStringLiteral("elimina un asiento prediseñado"),
               QStringLiteral("Uso: quilmar-cli predisenado-eliminar CODIGO --si"),
               {},
               predisenadoEliminar}},
    AltaVerbo{{QStringLiteral("predisenado"),
               QStringLiteral("rellena un asiento prediseñado (y lo contabiliza)"),
               QStringLiteral(
                   "Uso: quilmar-cli predisenado CODIGO [--valor CAMPO=VALOR ...] [--hoy FECHA]\n"
                   "        [--contabilizar]\n\n"
                   "Rellena el asiento prediseñado con los valores de los campos que se piden "
                   "(C13=121,50\nes el importe del apunte 1) y muestra el asiento que resulta, "
                   "separado por tabuladores.\nCon --contabilizar lo contabiliza como la pantalla "
                   "de Gestión de Asientos, con sus\ncomprobaciones; las líneas de IVA toman el "
                   "cliente o proveedor, la factura y la base\ndel asiento prediseñado."),
               {QStringLiteral("contabilizar")},
               predisenado}},
};

} // namespace
