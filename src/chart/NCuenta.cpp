#include "chart/NCuenta.h"

#include "platform/Almacen.h"

#include <array>

const QString MascaraNCuenta = QStringLiteral("0###0000#");

namespace {

// The plan accounts of each area, from 2008 on.
const std::array<const char*, NumeroAreas> Lista2008{
    ",100,101,102,110,112,113,114,118,119,120,121,129,130,131,132,137,141,142,143,145,280,281,282,"
    "290,291,292,293,294,2945,295,296,297,298,390,391,392,393,394,395,396,490,493,499,529,593,594,"
    "595,596,597,598,",
    ",548,550,551,552,554,555,559,570,571,572,573,574,575,",
    ",150,1533,153,154,160,161,162,163,170,171,172,173,174,175,176,177,179,180,181,185,194,199,249,"
    "259,400,401,403,404,405,410,411,419,4337,437,438,465,475,476,477,479,485,500,502,505,506,507,"
    "509,5090,5095,510,511,512,513,514,520,521,522,523,524,525,526,527,528,539,549,556,557,560,561,"
    "568,",
    ",606,608,609,636,638,639,700,701,702,703,704,705,710,711,712,713,730,731,732,733,740,746,747,"
    "751,752,753,754,755,759,760,761,762,763,766,768,769,770,771,772,773,775,778,790,791,792,793,"
    "794,795,796,797,798,799,",
    ",103,104,190,192,195,197,209,239,242,252,253,254,260,265,406,407,430,431,432,4330,433,434,435,"
    "436,440,441,446,449,460,470,471,472,473,474,480,532,533,534,535,542,543,544,545,546,547,548,"
    "549,558,565,566,567,",
    ",108,109,200,201,202,203,204,205,206,210,211,212,213,214,215,216,217,218,219,220,221,230,231,"
    "232,233,237,240,241,250,251,255,258,300,301,302,303,304,305,306,307,308,309,310,311,312,313,"
    "314,315,316,317,318,319,320,321,322,325,326,327,328,330,331,332,333,334,335,336,337,338,339,"
    "340,341,342,343,344,345,346,347,348,349,350,351,352,353,354,355,356,357,358,359,360,361,365,"
    "366,368,369,530,531,540,541,576,",
    ",600,601,602,607,610,611,612,620,621,622,623,624,625,626,627,628,629,630,631,633,634,640,641,"
    "642,649,650,651,659,660,661,662,663,664,665,660,667,668,669,670,671,672,673,675,678,680,681,"
    "682,690,691,692,693,694,695,696,697,698,699,706,708,709,"};

// The plan accounts of each area, for exercises before 2008.
const std::array<const char*, NumeroAreas> ListaAnterior{
    ",100,101,102,11,120,121,122,129,130,131,135,136,140,141,142,143,144,281,282,291,292,293,294,"
    "295,296,297,298,39,490,493,494,499,593,594,595,596,597,598,",
    ",548,550,551,552,553,555,570,571,572,573,574,575,",
    ",150,151,155,160,161,162,163,164,165,170,171,172,173,174,178,180,185,248,249,259,400,401,402,"
    "403,410,411,419,436,437,465,475,476,477,479,485,500,501,505,509,510,511,512,513,514,515,516,"
    "517,520,521,523,524,525,526,527,528,538,539,549,556,557,560,561,585,",
    ",608,609,636,638,639,700,701,702,703,704,705,71,73,74,75,760,761,762,763,765,766,768,769,770,"
    "771,772,773,774,775,778,779,79,",
    ",190,191,192,193,194,195,196,219,239,252,253,254,260,265,27,406,407,430,431,432,433,435,440,"
    "441,445,449,460,470,471,472,473,474,480,506,534,535,536,537,54,558,565,566,580,",
    ",198,199,20,210,211,212,213,214,215,217,22,23,24,250,251,256,257,258,30,31,32,33,34,35,36,53,"
    "540,541,",
    ",600,601,602,607,610,611,612,62,630,631,633,634,640,641,642,643,649,650,651,659,66,670,671,"
    "672,673,674,678,679,68,69,708,709,"};

const std::array<const char*, NumeroAreas> Etiquetas{
    "(0) - Capital",        "(1) - Cuentas y Efectivo",
    "(2) - SE DEBE",        "(3) - Ingresos/Ganancias",
    "(4) - NOS DEBEN",      "(5) - Bienes e Inversiones",
    "(6) - Gastos/Pérdidas"};

const std::array<const char*, NumeroAreas> NombresLista{
    "CAPITAL", "CUENTAS Y EFECTIVO", "SE DEBE", "INGRESOS", "NOS DEBEN", "BIENES", "GASTOS"};

} // namespace

QString EtiquetaArea(int area) {
    return area >= 0 && area < NumeroAreas ? QString::fromUtf8(Etiquetas[area]) : QString();
}

QString NombreListaArea(int area) {
    return area >= 0 && area < NumeroAreas ? QString::fromUtf8(NombresLista[area]) : QString();
}

bool AreaDeudora(int area) {
    return area == 1 || area == 4 || area == 5 || area == 6;
}

bool NCuentaValida(const QString& ncuenta) {
    return ncuenta.trimmed().size() == 9;
}

QString MsgErrorEnCuenta(const QString& nombre) {
    return QStringLiteral("Hay un error en la Cuenta ") + nombre +
           QStringLiteral(", por lo que no podrá utilizarla.");
}

QString FormatoMascara(qint64 valor, const QString& mascara) {
    QString digitos = QString::number(valor < 0 ? -valor : valor);
    if (digitos == QLatin1String("0"))
        digitos.clear(); // a '#' shows nothing for a zero
    QString r;
    int d = digitos.size() - 1;
    for (int i = mascara.size() - 1; i >= 0; --i) {
        const QChar m = mascara.at(i);
        if (m == QLatin1Char('0') || m == QLatin1Char('#')) {
            if (d >= 0)
                r.prepend(digitos.at(d--));
            else if (m == QLatin1Char('0'))
                r.prepend(QLatin1Char('0'));
        } else {
            r.prepend(m);
        }
    }
    if (d >= 0)
        r.prepend(digitos.left(d + 1));
    return valor < 0 ? QLatin1Char('-') + r : r;
}

QString ComponerNCuenta(const QString& ngrupo, long serie) {
    return FormatoMascara(ngrupo.trimmed().toLongLong() * 100000 + serie, MascaraNCuenta);
}

QString ListaPlan(int area, int anoEjercicio) {
    if (area < 0 || area >= NumeroAreas)
        return {};
    return QString::fromLatin1(anoEjercicio >= 2008 ? Lista2008[area] : ListaAnterior[area]);
}

int NumGrupo(const QString& codigo, int anoEjercicio) {
    const QString buscado = QLatin1Char(',') + codigo.trimmed() + QLatin1Char(',');
    for (int area = 0; area < NumeroAreas; ++area)
        if (ListaPlan(area, anoEjercicio).contains(buscado))
            return area;
    return SinArea;
}

long UltimaSubcuenta(Conexion& c) {
    return c
        .escalar(QStringLiteral(
            "SELECT COALESCE(MAX(CAST(substr(trim(NCuenta), -5) AS INTEGER)), 0) FROM Cuentas"))
        .toLongLong();
}

long SiguienteSerie(Conexion& c, long ultima) {
    // The lowest free serial is 1 or follows a used one, so it is the smallest of those
    // candidates that no subaccount holds: one query instead of a scan per number.
    const QVariant libre = c.escalar(QStringLiteral(
        "WITH Series(n) AS (SELECT CAST(substr(trim(NCuenta), -5) AS INTEGER) FROM Cuentas) "
        "SELECT MIN(p) FROM (SELECT 1 AS p UNION ALL SELECT n + 1 FROM Series) AS Candidatos "
        "WHERE p NOT IN (SELECT n FROM Series)"));
    const long n = libre.isNull() ? 1 : static_cast<long>(libre.toLongLong());
    return n <= ultima ? n : ultima + 1;
}
