#include "posting/EditorPredisenado.h"

#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Evaluar.h"
#include "posting/Contabilizar.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QSet>

const QString MsgFormatoFecha = QStringLiteral("Debe introducir la fecha en formato 'dd/mm/aa'.");
const QString MsgCodigoTresCifras =
    QStringLiteral("Debe introducir el Código del Asiento con tres cifras.");
const QString MsgDosApuntes =
    QStringLiteral("El Asiento Prediseñado debe tener almenos dos apuntes.");
const QString MsgCuadreUltimo =
    QStringLiteral("Sólo en el último Apunte puede estar definido el Importe como 'CUADRE'.");

QString MsgFormulaNombreCampo(int campo) {
    // The example names a field the formula may refer to.
    const int ejemplo = campo == CampoPredi::CliPro      ? 1
                        : campo == CampoPredi::Subcuenta ? 7
                                                         : campo;
    return QStringLiteral("Debe introducir la fórmula utilizando el nombre de otro campo, por "
                          "ejemplo C1%1.")
        .arg(ejemplo);
}

namespace {

// Which fields a formula may name, and the message otherwise.
struct ReglaFormula {
    QSet<int> digitos;
    const char* mensaje;
};

ReglaFormula reglaDe(int campo) {
    switch (campo) {
    case CampoPredi::Subcuenta:
        return {{7}, "La fórmula sólo puede referirse al Cliente/Proveedor de un Apunte anterior."};
    case CampoPredi::Concepto:
        return {{2}, "La fórmula sólo puede referirse al Concepto de un Apunte anterior."};
    case CampoPredi::Importe:
    case CampoPredi::Base:
        return {{3, 6},
                "La fórmula sólo puede referirse al Importe o Base Imponible de IVA de un Apunte "
                "anterior."};
    case CampoPredi::CliPro:
        return {{1, 7},
                "La fórmula sólo puede referirse a la Subcuenta o Cliente/Proveedor de un Apunte "
                "anterior."};
    case CampoPredi::Factura:
        return {{8}, "La fórmula sólo puede referirse a la Factura de un Apunte anterior."};
    default:
        return {{}, ""};
    }
}

bool esNombreCampo(const QString& t) {
    return t.size() == 3 && t.at(0) == QLatin1Char('C') && t.at(1) >= QLatin1Char('1') &&
           t.at(1) <= QLatin1Char('9') && t.at(2) >= QLatin1Char('0') &&
           t.at(2) <= QLatin1Char('8');
}

} // namespace

EditorPredisenado::EditorPredisenado(const Sesion& s, Dialogo& d) : s_(s), d_(d) {}

QString EditorPredisenado::Etiqueta() const {
    return QStringLiteral("C%1").arg(Digito);
}

QString EditorPredisenado::NombreCampo(int campo) const {
    return Etiqueta() + QString::number(campo);
}

bool EditorPredisenado::TeclaFecha(QChar c) {
    return (c >= QLatin1Char('0') && c <= QLatin1Char('9')) || c == QLatin1Char('/');
}

bool EditorPredisenado::TeclaFormulaImporte(QChar c) {
    return (c >= QLatin1Char('0') && c <= QLatin1Char('9')) ||
           (c.unicode() >= 40 && c.unicode() <= 47) || c.toUpper() == QLatin1Char('C');
}

void EditorPredisenado::vaciarCampos() {
    DH.clear();
    for (CampoEditor& c : Campos)
        c = {};
    LibroIVA = false;
    Mod347 = false;
    Coment.clear();
}

void EditorPredisenado::NuevoAp() {
    if (Lineas.size() >= MaxApuntesPredi) {
        d_.Informar(QStringLiteral("Un Asiento Prediseñado no puede tener más de nueve apuntes: "
                                   "los nombres de los campos sólo tienen una cifra para el "
                                   "Apunte."));
        return;
    }
    vaciarCampos();
    Digito = static_cast<int>(Lineas.size()) + 1;
}

void EditorPredisenado::BorrarTodo() {
    Codigo.clear();
    Nombre.clear();
    Lineas.clear();
    vaciarCampos();
    Digito = 1;
}

void EditorPredisenado::SeleccionarLinea(int indice) {
    if (indice < 0 || indice >= Lineas.size())
        return;
    const LineaPredisenado& l = Lineas.at(indice);
    Digito = l.Etiqueta.mid(1).toInt();
    DH = l.DH;
    for (int c = 0; c < CampoPredi::Total; ++c)
        Campos[c] = {TipoDeCelda(l.Campos[c]), ValorDeCelda(l.Campos[c])};
    LibroIVA = l.LibroIVA;
    Mod347 = l.Mod347;
    Coment = l.Coment;
}

bool EditorPredisenado::Cargar(int codigo) {
    std::optional<Predisenado> p;
    {
        Conexion c = AbrirBavar(s_);
        p = LeerPredisenado(c, codigo);
    }
    if (!p) {
        d_.Informar(MsgNoExistePredisenado);
        return false;
    }
    BorrarTodo();
    Codigo = CodigoPredi(p->Codigo);
    Nombre = p->Nombre;
    Lineas = p->Lineas;
    SeleccionarLinea(0);
    return true;
}

bool EditorPredisenado::AnadirAp() {
    for (const LineaPredisenado& l : Lineas)
        if (l.Etiqueta == Etiqueta()) {
            d_.Informar(QStringLiteral("Ya existe el apunte de Código ") + Etiqueta() +
                        QStringLiteral(". Si lo desea puede modificarlo con el botón Modificar "
                                       "Ap. Si quiere añadir un apunte nuevo utilice antes el "
                                       "boton Nuevo"));
            return false;
        }
    const std::optional<LineaPredisenado> l = validar();
    if (!l)
        return false;
    Lineas << *l;
    return true;
}

bool EditorPredisenado::ModificarAp() {
    int i = -1;
    for (int k = 0; k < Lineas.size(); ++k)
        if (Lineas[k].Etiqueta == Etiqueta())
            i = k;
    if (i < 0) {
        d_.Informar(QStringLiteral("No existe el apunte de Código ") + Etiqueta() +
                    QStringLiteral(". Para añadirlo utilice el botón Añadir Ap."));
        return false;
    }
    const std::optional<LineaPredisenado> l = validar();
    if (!l)
        return false;
    Lineas[i] = *l;
    return true;
}

std::optional<LineaPredisenado> EditorPredisenado::validar() {
    auto no = [&](const QString& texto) -> std::optional<LineaPredisenado> {
        d_.Informar(texto);
        return std::nullopt;
    };
    auto tipo = [&](int c) {
        return Campos[c].Tipo;
    };
    auto valor = [&](int c) {
        return Campos[c].Valor.trimmed();
    };
    const bool ticado = LibroIVA || Mod347;

    // A formula that names fields: each must be allowed to this field and belong to a line
    // already in the grid and before this one.
    auto nombresValidos = [&](int campo, const QStringList& nombres) {
        const ReglaFormula regla = reglaDe(campo);
        for (const QString& n : nombres) {
            const int linea = n.at(1).digitValue();
            bool enRejilla = false;
            for (const LineaPredisenado& l : Lineas)
                enRejilla = enRejilla || l.Etiqueta.left(2).toUpper() == n.left(2);
            if (!regla.digitos.contains(n.at(2).digitValue()) || !enRejilla || linea >= Digito) {
                d_.Informar(QString::fromUtf8(regla.mensaje));
                return false;
            }
        }
        return true;
    };
    // A formula that copies one field.
    auto copia = [&](int campo) {
        const QString f = valor(campo).toUpper();
        if (!esNombreCampo(f)) {
            d_.Informar(MsgFormulaNombreCampo(campo));
            return false;
        }
        return nombresValidos(campo, {f});
    };
    // The arithmetic of an amount or base.
    auto aritmetica = [&](int campo) {
        const QString f = valor(campo).toUpper();
        QStringList nombres;
        QString prueba;
        for (int k = 0; k < f.size(); ++k) {
            const QChar ch = f.at(k);
            if (ch == QLatin1Char('C')) {
                const QString n = f.mid(k, 3);
                if (!esNombreCampo(n)) {
                    d_.Informar(MsgFormulaNombreCampo(campo));
                    return false;
                }
                nombres << n;
                prueba += QLatin1Char('1');
                k += 2;
            } else if (TeclaFormulaImporte(ch)) {
                prueba += ch;
            } else {
                d_.Informar(QStringLiteral("La fórmula sólo puede tener cifras, el separador "
                                           "decimal, paréntesis, los signos + - * / y nombres de "
                                           "campo, por ejemplo C13."));
                return false;
            }
        }
        if (!nombresValidos(campo, nombres))
            return false;
        // What can be told now: the shape of the formula (with every field standing at 1).
        const ResultadoEvaluar r = Evaluar(NormalizarNumero(prueba));
        if (!r.ok()) {
            d_.Informar(QStringLiteral("La fórmula del campo %1 no es correcta: %2.")
                            .arg(NombreCampo(campo), r.mensaje));
            return false;
        }
        return true;
    };
    auto existe = [&](const QString& ncuenta) {
        Conexion c = AbrirDatos(s_);
        return c.existe(QStringLiteral("SELECT 1 FROM Cuentas WHERE NCuenta = ?"), {ncuenta});
    };
    auto fechaValida = [&](const QString& v) -> bool {
        for (const QChar ch : v)
            if (!TeclaFecha(ch)) {
                d_.Informar(MsgFormatoFecha);
                return false;
            }
        if (!FechaDeTexto(v).isValid()) {
            d_.Informar(QStringLiteral("La Fecha introducida no es correcta."));
            return false;
        }
        return true;
    };

    try {
        // Only the kinds each field offers.
        for (int c = 0; c < CampoPredi::Total; ++c)
            if (tipo(c) != TipoCelda::Ninguno && !TiposDeCampo(c).contains(tipo(c)))
                return no(QStringLiteral("El campo %1 (%2) no admite el tipo %3.")
                              .arg(NombreCampo(c), TituloCampoPredi(c), PalabraTipo(tipo(c), c)));

        // 1. Date.
        if (tipo(CampoPredi::Fecha) == TipoCelda::Ninguno)
            return no(QStringLiteral("Tiene que seleccionar el tipo de Fecha."));
        if (tipo(CampoPredi::Fecha) == TipoCelda::Fija && valor(CampoPredi::Fecha).isEmpty())
            return no(QStringLiteral("Tiene que introducir la Fecha."));
        if ((tipo(CampoPredi::Fecha) == TipoCelda::Fija ||
             tipo(CampoPredi::Fecha) == TipoCelda::Variable) &&
            !valor(CampoPredi::Fecha).isEmpty() && !fechaValida(valor(CampoPredi::Fecha)))
            return std::nullopt;
        // 2. Side.
        if (DH != QLatin1String("D") && DH != QLatin1String("H"))
            return no(QStringLiteral(
                "Tiene que seleccionar si se contabiliza en el Debe o en el Haber."));
        // 3. Subaccount.
        switch (tipo(CampoPredi::Subcuenta)) {
        case TipoCelda::Ninguno:
            return no(QStringLiteral("Tiene que seleccionar el tipo de Subcuenta."));
        case TipoCelda::Fija:
            if (valor(CampoPredi::Subcuenta).isEmpty())
                return no(QStringLiteral("Tiene que seleccionar la Subcuenta."));
            [[fallthrough]];
        case TipoCelda::Variable:
            if (!valor(CampoPredi::Subcuenta).isEmpty() && !existe(valor(CampoPredi::Subcuenta)))
                return no(
                    QStringLiteral("No existe la subcuenta %1.").arg(valor(CampoPredi::Subcuenta)));
            break;
        case TipoCelda::Formula:
            if (valor(CampoPredi::Subcuenta).isEmpty())
                return no(QStringLiteral(
                    "Tiene que introducir los datos de la fórmula en la Subcuenta."));
            if (!copia(CampoPredi::Subcuenta))
                return std::nullopt;
            break;
        default:
            break;
        }
        // 4. Description.
        switch (tipo(CampoPredi::Concepto)) {
        case TipoCelda::Ninguno:
            return no(QStringLiteral("Tiene que seleccionar el tipo de Concepto."));
        case TipoCelda::Fija:
            if (valor(CampoPredi::Concepto).isEmpty())
                return no(QStringLiteral("Tiene que introducir el Concepto."));
            [[fallthrough]];
        case TipoCelda::Variable:
            TextoCampo(Campo::Concepto, valor(CampoPredi::Concepto));
            break;
        case TipoCelda::Formula:
            if (valor(CampoPredi::Concepto).isEmpty())
                return no(
                    QStringLiteral("Tiene que introducir los datos de la fórmula en el Concepto."));
            if (!copia(CampoPredi::Concepto))
                return std::nullopt;
            break;
        default:
            break;
        }
        // 5. Amount.
        switch (tipo(CampoPredi::Importe)) {
        case TipoCelda::Ninguno:
            return no(QStringLiteral("Tiene que seleccionar el tipo de Importe."));
        case TipoCelda::Fija:
            if (valor(CampoPredi::Importe).isEmpty())
                return no(QStringLiteral("Tiene que introducir el Importe."));
            [[fallthrough]];
        case TipoCelda::Variable:
            if (!valor(CampoPredi::Importe).isEmpty() && !LeerImporte(valor(CampoPredi::Importe)))
                return no(QStringLiteral("El Importe introducido no es correcto."));
            break;
        case TipoCelda::Formula:
            if (valor(CampoPredi::Importe).isEmpty())
                return no(
                    QStringLiteral("Tiene que introducir los datos de la fórmula en el Importe."));
            if (!aritmetica(CampoPredi::Importe))
                return std::nullopt;
            break;
        default:
            break;
        }
        // 6. Base, required for a line of the VAT book or the 347.
        const TipoCelda tb = tipo(CampoPredi::Base);
        if (ticado && tb == TipoCelda::Ninguno)
            return no(QStringLiteral("Tiene que seleccionar el tipo de Base Imponible de IVA."));
        if (ticado && tb == TipoCelda::Fija && valor(CampoPredi::Base).isEmpty())
            return no(QStringLiteral("Tiene que introducir la Base Imponible de IVA."));
        if (tb == TipoCelda::Formula && valor(CampoPredi::Base).isEmpty())
            return no(QStringLiteral(
                "Tiene que introducir los datos de la fórmula en la Base Imponible de IVA."));
        if ((tb == TipoCelda::Fija || tb == TipoCelda::Variable) &&
            !valor(CampoPredi::Base).isEmpty() && !LeerImporte(valor(CampoPredi::Base)))
            return no(QStringLiteral("La Base Imponible de IVA introducida no es correcta."));
        if (tb == TipoCelda::Formula && !aritmetica(CampoPredi::Base))
            return std::nullopt;
        // 7. Customer or supplier.
        const TipoCelda tc = tipo(CampoPredi::CliPro);
        if (ticado && tc == TipoCelda::Ninguno)
            return no(QStringLiteral("Tiene que seleccionar el tipo de Cliente/Proveedor."));
        if (ticado && tc == TipoCelda::Fija && valor(CampoPredi::CliPro).isEmpty())
            return no(QStringLiteral("Tiene que introducir el Cliente/Proveedor."));
        if (tc == TipoCelda::Formula && valor(CampoPredi::CliPro).isEmpty())
            return no(QStringLiteral(
                "Tiene que introducir los datos de la fórmula en Cliente/Proveedor."));
        if ((tc == TipoCelda::Fija || tc == TipoCelda::Variable) &&
            !valor(CampoPredi::CliPro).isEmpty() && !existe(valor(CampoPredi::CliPro)))
            return no(QStringLiteral("No existe la subcuenta %1.").arg(valor(CampoPredi::CliPro)));
        if (tc == TipoCelda::Formula && !copia(CampoPredi::CliPro))
            return std::nullopt;
        // 8. Invoice.
        const TipoCelda tf = tipo(CampoPredi::Factura);
        if (ticado && (tf == TipoCelda::Fija || tf == TipoCelda::Ninguno) &&
            valor(CampoPredi::Factura).isEmpty())
            return no(QStringLiteral("Tiene que introducir el número de Factura."));
        if (tf == TipoCelda::Formula && valor(CampoPredi::Factura).isEmpty())
            return no(
                QStringLiteral("Tiene que introducir los datos de la fórmula en la Factura."));
        if (tf == TipoCelda::Formula && !copia(CampoPredi::Factura))
            return std::nullopt;
        TextoCampo(Campo::NFactura,
                   tf == TipoCelda::Formula ? QString() : valor(CampoPredi::Factura));
        // Sector, document and comment hold what the books can keep.
        const TipoCelda ts = tipo(CampoPredi::Sector);
        if ((ts == TipoCelda::Fija || ts == TipoCelda::Variable) &&
            !valor(CampoPredi::Sector).isEmpty() &&
            !SectoresConVacio(s_).contains(valor(CampoPredi::Sector)))
            return no(QStringLiteral("No existe el sector %1.").arg(valor(CampoPredi::Sector)));
        TextoCampo(Campo::Documento, valor(CampoPredi::Documento));
        TextoCampo(Campo::ComentarioPredi, Coment);
    } catch (const ErrorQuilmar& e) {
        return no(e.mensaje());
    }

    LineaPredisenado l;
    l.Etiqueta = Etiqueta();
    l.DH = DH;
    for (int c = 0; c < CampoPredi::Total; ++c) {
        QString v = valor(c);
        if (tipo(c) == TipoCelda::Formula)
            v = v.toUpper();
        l.Campos[c] = CeldaDe(tipo(c), v);
    }
    if (tipo(CampoPredi::Subcuenta) == TipoCelda::Fija)
        l.NCuenta = valor(CampoPredi::Subcuenta);
    if (tipo(CampoPredi::CliPro) == TipoCelda::Fija)
        l.NCliPro = valor(CampoPredi::CliPro);
    l.LibroIVA = LibroIVA;
    l.Mod347 = Mod347;
    l.Coment = Coment.trimmed();
    return l;
}

bool EditorPredisenado::Guardar() {
    const std::optional<int> codigo = LeerCodigoPredi(Codigo);
    if (!codigo) {
        d_.Informar(MsgCodigoTresCifras);
        return false;
    }
    if (Nombre.trimmed().isEmpty()) {
        d_.Informar(QStringLiteral("Debe introducir el nombre del Asiento."));
        return false;
    }
    QString nombre;
    try {
        nombre = TextoCampo(Campo::NombrePredi, Nombre);
    } catch (const Rechazo& e) {
        d_.Informar(e.mensaje());
        return false;
    }
    if (Lineas.size() < 2) {
        d_.Informar(MsgDosApuntes);
        return false;
    }
    const struct {
        int campo;
        const char* mensaje;
    } primeras[] = {
        {CampoPredi::Fecha, "En el primer Apunte la Fecha no puede estar definida com 'ANTERIOR'."},
        {CampoPredi::Concepto,
         "En el primer Apunte el Concepto no puede estar definido com 'ANTERIOR'."},
        {CampoPredi::Importe,
         "En el primer Apunte el Importe no puede estar definido com 'ANTERIOR'."},
        {CampoPredi::Sector,
         "En el primer Apunte el Sector no puede estar definido com 'ANTERIOR'."},
        {CampoPredi::Documento,
         "En el primer Apunte el Documento no puede estar definido com 'ANTERIOR'."},
    };
    for (const auto& p : primeras)
        if (TipoDeCelda(Lineas.first().Campos[p.campo]) == TipoCelda::Anterior) {
            d_.Informar(QString::fromUtf8(p.mensaje));
            return false;
        }
    for (int i = 0; i + 1 < Lineas.size(); ++i)
        if (TipoDeCelda(Lineas[i].Campos[CampoPredi::Importe]) == TipoCelda::Cuadre) {
            d_.Informar(MsgCuadreUltimo);
            return false;
        }
    Predisenado p;
    p.Codigo = *codigo;
    p.Nombre = nombre;
    p.Lineas = Lineas;
    Conexion c = AbrirBavar(s_);
    if (ExistePredisenado(c, p.Codigo) &&
        !d_.Preguntar(QStringLiteral("El Asiento Prediseñado ") + Codigo.trimmed() +
                      QStringLiteral(" ya existe. Desea sobrescribirlo?")))
        return false;
    GuardarPredisenado(c, p);
    return true;
}
