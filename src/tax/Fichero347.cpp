#include "tax/Fichero347.h"

#include "platform/Ajustes.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/Ficheros.h"
#include "store/Sesion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>

const QString MsgSinPlataforma347 =
    QStringLiteral(
        "La plataforma de módulos informativos de la Agencia Tributaria (%1, en la carpeta %2 del "
        "programa) no está instalada: el archivo Gen347.txt se ha generado, pero no ha sido "
        "validado.")
        .arg(NombrePlataforma, CarpetaModIP);
const QString MsgSinJava347 =
    QStringLiteral("No se ha encontrado la versión 1.6 de Java, que necesita la plataforma de "
                   "módulos informativos de la Agencia Tributaria: el archivo Gen347.txt se ha "
                   "generado, pero no ha sido validado.");
const QString MsgBuscarJava347 =
    QStringLiteral("Para el ejercicio de 2010 el programa utiliza la versión 1.6 de Java para "
                   "generar el modelo 347, la cual no ha sido encontrado por Quilmar. Por favor "
                   "busque y seleccione manualmente Java (archivo Java.exe), que generalmente se "
                   "instala en un subdirectorio de c:\\Archivos de programa\\Java. Si no lo tiene "
                   "instalado puede descargarlo de la web de la Agencia Tributaria, %1, Descarga "
                   "de programas de Ayuda, Descraga e instalación de la Máquina Virtual Java.")
        .arg(DireccionAgencia);

namespace {

const QString Datos = QStringLiteral("Datos");
const QString ClaveJava = QStringLiteral("Java");
const QString NoSeGenero = QStringLiteral("No se pudo generar el archivo");

// A number field: zero-padded on the left.
QString Ceros(const QString& texto, int ancho) {
    return texto.trimmed().rightJustified(ancho, u'0', true);
}

// "2", "347" and the exercise: the start of every detail record.
void Cabecera(RegistroHacienda& r, const Modelo347& m) {
    r.Texto(QStringLiteral("2")).Texto(QStringLiteral("347")).Campo(m.ejercicio.trimmed(), 4);
    r.Campo(m.nif.trimmed(), 9);
}

void Importe(RegistroHacienda& r, const Casilla& c) {
    r.Importe(c, 13, Precision::Doble);
}

QString Marca(bool x) {
    return x ? QStringLiteral("X") : QStringLiteral(" ");
}

// Runs the platform and waits for it. False when it cannot start.
bool Ejecutar(const QString& java, const QStringList& argumentos, const QString& carpeta) {
    QProcess p;
    p.setWorkingDirectory(carpeta);
    p.setProgram(java);
    p.setArguments(argumentos);
    p.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    p.start();
    if (!p.waitForStarted())
        return false;
    // The platform takes a few seconds; one that hangs is not left behind.
    if (!p.waitForFinished(120000)) {
        p.kill();
        p.waitForFinished();
    }
    return true;
}

QString LeerTexto(const QString& ruta) {
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? DeCp1252(f.readAll()).trimmed() : QString();
}

// The folders of a runtime's version 1.6 name it so: jre1.6.0_45, jdk1.6.0, java-6-openjdk,
// java-1.6.0-openjdk.
bool EsJava16(const QString& ruta) {
    static const QRegularExpression version(QStringLiteral("(jre|jdk|java)-?(1\\.)?6([^0-9]|$)"),
                                            QRegularExpression::CaseInsensitiveOption);
    return version.match(ruta).hasMatch();
}

} // namespace

QByteArray RegistroDeclarante347(const Modelo347& m) {
    RegistroHacienda r;
    r.Texto(QStringLiteral("1")).Texto(QStringLiteral("347")).Campo(m.ejercicio.trimmed(), 4);
    r.Campo(m.nif.trimmed(), 9).Campo(m.nombre.trimmed(), 40);
    r.Texto(m.impreso ? QStringLiteral("P") : QStringLiteral("T"));
    r.Texto(Ceros(m.telefono, 9)).Campo(m.contacto.trimmed(), 40);
    r.Texto(QStringLiteral("3470000000000"));
    r.Texto(m.complementaria ? QStringLiteral("C") : QStringLiteral(" "));
    r.Texto(m.sustitutiva ? QStringLiteral("S") : QStringLiteral(" "));
    r.Texto(Ceros(m.justificante, 13));
    r.Texto(Ceros(m.numDeclarados, 9));
    Importe(r, m.totalDeclarados);
    r.Texto(Ceros(m.numInmuebles, 9));
    Importe(r, m.totalInmuebles);
    r.Blancos(207);
    if (m.representante.trimmed().isEmpty())
        r.Blancos(9);
    else
        r.Texto(Ceros(m.representante, 9));
    r.Blancos(88).Blancos(13);
    return r.Bytes();
}

QByteArray RegistroInmueble347(const Modelo347& m, const Inmueble347& i) {
    RegistroHacienda r;
    Cabecera(r, m);
    r.Campo(i.nif.trimmed(), 9).Campo(i.nifRepresentante.trimmed(), 9);
    r.Campo(i.nombre.trimmed(), 40).Texto(QStringLiteral("I")).Blancos(23);
    Importe(r, i.importe);
    r.Campo(i.situacion.trimmed(), 1).Campo(i.referencia.trimmed(), 25);
    r.Campo(i.tipoVia.trimmed(), 5).Campo(i.via.trimmed(), 50).Campo(i.tipoNumero.trimmed(), 3);
    r.Texto(Ceros(i.numero, 5)).Campo(i.calificador.trimmed(), 3);
    for (const QString* parte : {&i.bloque, &i.portal, &i.escalera, &i.planta, &i.puerta})
        r.Campo(parte->trimmed(), 3);
    r.Campo(i.complemento.trimmed(), 40).Campo(i.localidad.trimmed(), 30);
    r.Campo(i.municipio.trimmed(), 30).Campo(i.codMunicipio.trimmed(), 5);
    r.Texto(Ceros(i.codProvincia, 2)).Texto(Ceros(i.cpostal, 5));
    r.Blancos(167);
    return r.Bytes();
}

QByteArray RegistroDeclarado347(const Modelo347& m, const Declarado347& d) {
    if (d.nif.trimmed().size() > 9)
        return {};
    RegistroHacienda r;
    Cabecera(r, m);
    r.Campo(d.nif.trimmed(), 9).Campo(d.nifRepresentante.trimmed(), 9);
    r.Campo(d.nombre.trimmed(), 40).Texto(QStringLiteral("D"));
    r.Texto(d.provincia.trimmed().rightJustified(2, u' ', true));
    r.Campo(d.pais.trimmed(), 2).Blancos(1).Campo(d.clave.trimmed(), 1);
    Importe(r, d.importe);
    r.Texto(Marca(d.seguro)).Texto(Marca(d.arrendamiento));
    Importe(r, d.metalico);
    Importe(r, d.transmisiones);
    r.Texto(Valor(d.metalico) > 0 ? Ceros(d.anoMetalico, 4) : QStringLiteral("0000"));
    r.Blancos(367);
    return r.Bytes();
}

std::optional<Fallo347> Fichero347(const Modelo347& m, QByteArray& contenido) {
    contenido.clear();
    QByteArray r = RegistroDeclarante347(m) + "\r\n";
    for (const Inmueble347& i : m.inmuebles)
        r += RegistroInmueble347(m, i) + "\r\n";
    for (int n = 0; n < m.declarados.size(); ++n) {
        const QByteArray d = RegistroDeclarado347(m, m.declarados.at(n));
        if (d.isEmpty())
            return Fallo347{MsgNifDeclaradoErroneo, Hoja347::Declarados, n,
                            QStringLiteral("NifDeclarado")};
        r += d + "\r\n";
    }
    contenido = r;
    return std::nullopt;
}

QStringList CandidatosJava() {
    QStringList r;
    const QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
    const QString home = entorno.value(QStringLiteral("JAVA_HOME"));
    if (!home.isEmpty())
        r << home + QStringLiteral("/bin/java") << home + QStringLiteral("/jre/bin/java");
    for (const QString& dir :
         entorno.value(QStringLiteral("PATH")).split(QDir::listSeparator(), Qt::SkipEmptyParts))
        r << QDir(dir).filePath(QStringLiteral("java"));
    for (const QString& raiz :
         {QStringLiteral("/usr/lib/jvm"), QStringLiteral("/usr/java"), QStringLiteral("/opt")}) {
        const QDir d(raiz);
        for (const QString& sub : d.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name))
            r << d.filePath(sub + QStringLiteral("/bin/java"))
              << d.filePath(sub + QStringLiteral("/jre/bin/java"));
    }
    return r;
}

QString LocalizarJava(Ajustes& a, const QStringList& candidatos) {
    const QString guardado = a.leerEmp(Datos, ClaveJava, QString());
    if (!guardado.isEmpty() && QFileInfo(guardado).isFile())
        return guardado;
    for (const QString& c : candidatos) {
        const QFileInfo f(c);
        if (!f.isFile() || !f.isExecutable())
            continue;
        if (!EsJava16(c) && !EsJava16(f.canonicalFilePath()))
            continue;
        a.escribirEmp(Datos, ClaveJava, c);
        return c;
    }
    return {};
}

std::optional<Fallo347> Presentar347(const Sesion& s, Ajustes& a, Modelo347& m, int indice,
                                     Dialogo& d, const Plataforma347& p,
                                     ResultadoEntrega* resultado) {
    ResultadoEntrega nada = ResultadoEntrega::Cancelado;
    ResultadoEntrega& r = resultado ? *resultado : nada;
    if (auto f = Comprobar347(m, indice, d)) {
        d.Informar(f->mensaje);
        return f;
    }
    const QDir carpeta(QDir(s.AppPath).filePath(CarpetaModIP));
    if (!QDir().mkpath(carpeta.path()))
        throw ErrorQuilmar(QStringLiteral("No se pudo crear la carpeta %1.")
                               .arg(QDir::toNativeSeparators(carpeta.path())));
    const QString generado = carpeta.filePath(QStringLiteral("Gen347.txt"));
    const QString pdf = carpeta.filePath(QStringLiteral("Gen347.pdf"));
    const QString rst = carpeta.filePath(QStringLiteral("ERRORES.RST"));
    const QString errores = carpeta.filePath(QStringLiteral("ERRORES.TXT"));
    // What an earlier run left must not be taken for this file's result.
    for (const QString& viejo : {generado, pdf, rst, errores})
        if (QFile::exists(viejo) && !QFile::remove(viejo))
            throw ErrorQuilmar(QStringLiteral("No se pudo borrar el archivo %1.")
                                   .arg(QDir::toNativeSeparators(viejo)));
    QByteArray contenido;
    if (auto f = Fichero347(m, contenido)) {
        d.Informar(f->mensaje);
        return f;
    }
    EscribirFicheroHacienda(generado, contenido);

    EntregaHacienda e;
    e.modelo = QStringLiteral("347");
    e.nif = m.nif;
    e.carpeta = CarpetaModIP;
    auto sinPlataforma = [&](const QString& mensaje) {
        d.Informar(mensaje);
        r = CopiarParaEnvio(generado, e, d, p.elegirCarpeta);
        return std::nullopt;
    };
    QString java = LocalizarJava(a, p.candidatosJava);
    const QString jar = carpeta.filePath(NombrePlataforma);
    if (!QFileInfo(jar).isFile())
        return sinPlataforma(MsgSinPlataforma347);
    if (java.isEmpty() && p.elegirJava) {
        d.Informar(MsgBuscarJava347);
        java = p.elegirJava();
        if (!java.isEmpty())
            a.escribirEmp(Datos, ClaveJava, java);
    }
    if (java.isEmpty())
        return sinPlataforma(MsgSinJava347);

    QStringList argumentos{QStringLiteral("-jar"), QDir::toNativeSeparators(jar),
                           QStringLiteral("/E:") + QDir::toNativeSeparators(generado)};
    if (indice == 0)
        argumentos << QStringLiteral("/P:") + QDir::toNativeSeparators(pdf);
    else
        argumentos << QStringLiteral("/V:S");
    if (!Ejecutar(java, argumentos, carpeta.path()))
        return sinPlataforma(MsgSinJava347);

    if (indice == 0) {
        if (QFileInfo(pdf).isFile()) {
            if (p.abrirDocumento)
                p.abrirDocumento(pdf);
            r = ResultadoEntrega::Validado;
            return std::nullopt;
        }
        const QString texto = QFile::exists(errores) ? LeerTexto(errores) : NoSeGenero;
        d.Informar(QStringLiteral("Errores: ") + texto);
        r = ResultadoEntrega::Errores;
        return std::nullopt;
    }
    if (!QFile::exists(rst)) {
        d.Informar(QStringLiteral("Errores: ") + NoSeGenero);
        r = ResultadoEntrega::Errores;
        return std::nullopt;
    }
    const QString veredicto = LeerTexto(rst);
    if (!veredicto.contains(QLatin1String("SATISFACTORIAMENTE"))) {
        d.Informar(QStringLiteral("Errores: ") + veredicto);
        r = ResultadoEntrega::Errores;
        return std::nullopt;
    }
    r = CopiarParaEnvio(generado, e, d, p.elegirCarpeta);
    return std::nullopt;
}
