#include "posting/Arrastre.h"

#include "chart/NCuenta.h"
#include "journal/Escritor.h"

const QString MsgNoCompletado = QStringLiteral("No ha completado los dos primeros apuntes.");

namespace {

using Accion = DecisionSoltar::Accion;

bool ingresoOGasto(int area) {
    return area == 3 || area == 6;
}

// The account of the plan, characters two to four of the code.
QString cuentaPlan(const QString& ncuenta) {
    return ncuenta.trimmed().mid(1, 3);
}

// The first line whose code can't be used, or -1.
int primeraInvalida(const QList<FilaArea>& lineas) {
    for (int i = 0; i < lineas.size(); ++i)
        if (!NCuentaValida(lineas.at(i).NCuenta))
            return static_cast<int>(i);
    return -1;
}

DecisionSoltar parar(const QString& mensaje = {}) {
    DecisionSoltar d;
    d.accion = Accion::Nada;
    d.Mensaje = mensaje;
    return d;
}

// Adding to an open entry: tests A to E, in order; the first that holds decides.
DecisionSoltar anadir(const EntradaSoltar& e) {
    DecisionSoltar d;
    if (!e.Form4.UltimaConImporte) {
        d.accion = Accion::Mostrar;
        d.Mensaje = MsgNoCompletado;
        return d;
    }
    const QString& F = e.Form4.Nombre1;
    const QString& G = e.Form4.Nombre2;
    const bool cruce = AmbasAcreedorasIguales(e.S, e.T);
    const FilaArea& fuente = e.Origen;
    const FilaArea& destino = e.Destino;

    if (destino.Nombre == F && fuente.Nombre.isEmpty()) {
        d.Prueba = 'A';
        d.Lineas = {e.ActualS};
    } else if (destino.Nombre == F) {
        d.Prueba = 'A';
        d.Modo = cruce ? QStringLiteral("H2") : QStringLiteral("H");
        d.Lineas = {fuente};
    } else if (e.ActualS.Nombre == F) {
        d.Prueba = 'B';
        d.Modo = cruce ? QStringLiteral("D2") : QStringLiteral("D");
        d.Lineas = {cruce ? fuente : destino};
    } else if (fuente.Nombre == G) {
        d.Prueba = 'C';
        d.Modo = QStringLiteral("D");
        d.Lineas = {destino};
    } else if (destino.NCuenta == fuente.NCuenta) {
        d.Prueba = 'D';
        const QString cuenta = cuentaPlan(fuente.NCuenta);
        if (cuenta == QLatin1String("472")) {
            // A VAT subaccount dropped on itself adds a line on the side of its kind.
            d.Modo = QStringLiteral("D");
            d.Lineas = {destino};
        } else if (cuenta == QLatin1String("477")) {
            d.Modo = QStringLiteral("H");
            d.Lineas = {fuente};
        } else {
            d.accion = Accion::Nada;
            d.VaciarOrigen = true;
            return d;
        }
    } else {
        d.Prueba = 'E';
        d.Modo = QStringLiteral("DOS");
        d.Lineas = cruce ? QList<FilaArea>{fuente, destino} : QList<FilaArea>{destino, fuente};
    }

    // Every line is checked before any is added, so a bad code leaves the entry as it was.
    const int mala = primeraInvalida(d.Lineas);
    if (mala >= 0) {
        DecisionSoltar r = parar(MsgErrorEnCuenta(d.Lineas.at(mala).Nombre));
        r.Prueba = d.Prueba;
        return r;
    }
    d.accion = Accion::Anadir;
    return d;
}

} // namespace

bool AmbasAcreedorasIguales(int s, int t) {
    return s == t && (s == 0 || s == 2);
}

DecisionSoltar DecidirSoltar(const EntradaSoltar& e) {
    if (e.EjCerrado) {
        DecisionSoltar d;
        d.accion = Accion::Cancelar;
        d.Mensaje = MsgEjercicioCerrado;
        return d;
    }

    // A click on an income or expense, or a drag inside that list: a quick entry against the
    // money of the last entry, when there is one.
    const bool rapido = ingresoOGasto(e.T) && e.S == e.T;
    if (rapido && e.Dinero.NCuenta.isEmpty())
        return parar();

    if (!rapido) {
        if (e.Form4.Abierto)
            return anadir(e);
        if (ingresoOGasto(e.T)) {
            if (e.ActualS.NCuenta == e.Destino.NCuenta)
                return parar();
        } else if (e.Origen.NCuenta == e.Destino.NCuenta || e.Origen.NCuenta.isEmpty()) {
            DecisionSoltar d = parar();
            d.VaciarOrigen = true;
            return d;
        }
        if (!NCuentaValida(e.Destino.NCuenta))
            return parar(MsgErrorEnCuenta(e.Destino.Nombre));
    }
    if (!NCuentaValida(e.Origen.NCuenta))
        return parar(MsgErrorEnCuenta(e.Origen.Nombre));

    DecisionSoltar d;
    d.accion = Accion::Nuevo;
    d.Rapido = rapido;
    d.Modo = QStringLiteral("DOS");
    const QString& dinero = e.Dinero.NCuenta;
    d.Aviso = !rapido && e.AvisoRepe && !dinero.isEmpty() &&
              (((e.S == 2 || e.S == 5) && e.Destino.NCuenta == dinero) ||
               (ingresoOGasto(e.T) && e.Origen.NCuenta == dinero));
    if (rapido)
        d.Lineas =
            e.T == 6 ? QList<FilaArea>{e.Destino, e.Dinero} : QList<FilaArea>{e.Dinero, e.Destino};
    else if (AmbasAcreedorasIguales(e.S, e.T))
        // Within Capital or within SE DEBE the sides swap: those areas have credit nature.
        d.Lineas = {e.Origen, e.Destino};
    else
        // The money goes from the source to the target: the target is debited.
        d.Lineas = {e.Destino, e.Origen};
    return d;
}

bool EstadoArrastre::SobreLista(int area, const FilaArea& fila) {
    if (area != AreaOrigen || !Armado)
        return false;
    Armado = false;
    Origen = fila;
    return true;
}

QString EstadoArrastre::TextoFlotante() const {
    return QStringLiteral("   ") + Origen.Nombre;
}

DecisionSoltar EstadoArrastre::Soltar(int t, const FilaArea& destino, const FilaArea& actualS,
                                      bool ejCerrado, const FilaArea& dinero, bool avisoRepe,
                                      const AsientoAbierto& form4) {
    EntradaSoltar e;
    e.EjCerrado = ejCerrado;
    e.S = AreaOrigen;
    e.T = t;
    e.Origen = Origen;
    e.ActualS = actualS;
    e.Destino = destino;
    e.Dinero = dinero;
    e.AvisoRepe = avisoRepe;
    e.Form4 = form4;
    const DecisionSoltar d = DecidirSoltar(e);
    Armado = true;
    LetraBusqueda.clear();
    if (d.VaciarOrigen)
        Origen = {};
    return d;
}
