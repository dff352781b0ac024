// OPEN, READ, TRANSFER, CLOSE and DELETE DATASET.
#include <algorithm>
#include <cstring>
#include <utility>

#include "abap/compile/compiler.h"
#include "abap/values/conversion.h"

namespace qor::abap {

namespace {

class AbrirArchivo : public Instruccion {
public:
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        const bool abierto = maquina.Alrededor().archivos.Abrir(TextoPlano(maquina.Resolver(nombre)), modo, texto);
        if (!abierto && mensaje) PonerTexto("The file can't be opened", maquina.Destino(*mensaje));
        maquina.PonerSubrc(abierto ? 0 : 8);
        return siguiente;
    }

    Operando nombre;
    Archivos::Modo modo = Archivos::Modo::Leer;
    bool texto = false;
    std::optional<Operando> mensaje;
};

class LeerArchivo : public Instruccion {
public:
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        const Campo campo = maquina.Destino(destino);
        std::string linea_;
        const bool hay = maquina.Alrededor().archivos.Leer(TextoPlano(maquina.Resolver(nombre)), linea_, LargoPedido(campo));
        if (hay) Poner(linea_, campo);
        if (largo) PonerEntero(hay ? Leidos(linea_, campo) : 0, maquina.Destino(*largo));
        maquina.PonerSubrc(hay ? 0 : 4);
        return siguiente;
    }

    Operando nombre;
    Operando destino;
    std::optional<Operando> largo;

private:
    static std::size_t LargoPedido(const Campo& campo) {
        return campo.tipo == Tipo::Cadena ? static_cast<std::size_t>(-1) : campo.largo;
    }

    static std::int64_t Leidos(const std::string& leida, const Campo& campo) {
        return static_cast<std::int64_t>(std::min(leida.size(), LargoPedido(campo)));
    }

    // As it stands, cut or padded.
    static void Poner(const std::string& leida, const Campo& campo) {
        if (campo.tipo == Tipo::Cadena) {
            *campo.cadena = leida;
            return;
        }
        const std::size_t cuantos = std::min<std::size_t>(leida.size(), campo.largo);
        std::memcpy(campo.datos, leida.data(), cuantos);
        std::memset(campo.datos + cuantos, EsDelConjunto(campo.tipo, tiposDeCaracteres) ? ' ' : 0, campo.largo - cuantos);
    }
};

class EscribirArchivo : public Instruccion {
public:
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& archivos = maquina.Alrededor().archivos;
        const Campo campo = maquina.Resolver(fuente);
        const auto bytes = campo.Texto();
        const std::string archivo = TextoPlano(maquina.Resolver(nombre));
        if (largo) {
            const std::int64_t pedido = std::max<std::int64_t>(maquina.Entero(*largo), 0);
            std::string cortado(bytes.substr(0, static_cast<std::size_t>(pedido)));
            cortado.resize(static_cast<std::size_t>(pedido), ' ');
            archivos.Escribir(archivo, cortado);
        } else {
            archivos.Escribir(archivo, bytes);
        }
        maquina.PonerSubrc(0);
        return siguiente;
    }

    Operando nombre;
    Operando fuente;
    std::optional<Operando> largo;
};

class CerrarArchivo : public Instruccion {
public:
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        auto& archivos = maquina.Alrededor().archivos;
        const std::string archivo = TextoPlano(maquina.Resolver(nombre));
        bool hecho = true;
        if (borrar)
            hecho = archivos.Borrar(archivo);
        else
            archivos.Cerrar(archivo);
        maquina.PonerSubrc(hecho ? 0 : 4);
        return siguiente;
    }

    Operando nombre;
    bool borrar = false;
};

// ---- Reading ----

// ENCODING DEFAULT | UTF-8 | NON-UNICODE, LEGACY TEXT | BINARY MODE ..., IGNORING CONVERSION ERRORS: files are windows-1252 here,
// so they change nothing.
bool LeerJuegoDeCaracteres(Compilador& c, Lectura& l) {
    if (l.Toma("ENCODING"_c)) {
        if (!l.Toma("DEFAULT"_c) && !l.Toma("UTF-8"_c) && !l.Toma("NON-UNICODE"_c)) l.NoSePractica();
        if (l.Toma("WITH"_c) || l.Toma("SKIPPING"_c)) l.NoSePractica();
        return true;
    }
    if (l.Toma("IGNORING"_c)) {
        l.Exige("CONVERSION"_c, "CONVERSION");
        l.Exige("ERRORS"_c, "ERRORS");
        return true;
    }
    if (l.Toma("REPLACEMENT"_c)) {
        l.Exige("CHARACTER"_c, "CHARACTER");
        c.LeerOperando(l);
        return true;
    }
    if (l.Toma("CODE"_c)) {
        l.Exige("PAGE"_c, "PAGE");
        c.LeerOperando(l);
        return true;
    }
    if (l.Toma("BIG"_c) || l.Toma("LITTLE"_c)) {
        l.Exige("ENDIAN"_c, "ENDIAN");
        return true;
    }
    return false;
}

void LeerOPEN(Compilador& c, Lectura& l) {
    auto abrir = std::make_unique<AbrirArchivo>();
    abrir->nombre = c.LeerOperando(l);
    while (l.Hay()) {
        if (l.Toma("FOR"_c)) {
            if (l.Toma("INPUT"_c)) {
                abrir->modo = Archivos::Modo::Leer;
            } else if (l.Toma("OUTPUT"_c)) {
                abrir->modo = Archivos::Modo::Escribir;
            } else {
                l.Exige("APPENDING"_c, "INPUT, OUTPUT or APPENDING");
                abrir->modo = Archivos::Modo::Anadir;
            }
        } else if (l.Toma("IN"_c)) {
            l.Toma("LEGACY"_c);
            abrir->texto = l.Toma("TEXT"_c);
            if (!abrir->texto) l.Exige("BINARY"_c, "TEXT or BINARY");
            l.Exige("MODE"_c, "MODE");
        } else if (l.Toma("LEGACY"_c)) {
            if (!l.Toma("TEXT"_c)) l.Exige("BINARY"_c, "TEXT or BINARY");
            l.Exige("MODE"_c, "MODE");
        } else if (l.Toma("MESSAGE"_c)) {
            abrir->mensaje = c.LeerDestino(l);
        } else if (!LeerJuegoDeCaracteres(c, l)) {
            l.NoSePractica();
        }
    }
    c.Emitir(std::move(abrir));
}

void LeerREAD(Compilador& c, Lectura& l) {
    auto leer = std::make_unique<LeerArchivo>();
    leer->nombre = c.LeerOperando(l);
    l.Exige("INTO"_c, "INTO");
    leer->destino = c.LeerDestino(l);
    if (l.Toma("LENGTH"_c)) leer->largo = c.LeerDestino(l);
    l.Fin();
    c.Emitir(std::move(leer));
}

void LeerTRANSFER(Compilador& c, Lectura& l) {
    auto escribir = std::make_unique<EscribirArchivo>();
    escribir->fuente = c.LeerOperando(l);
    l.Exige("TO"_c, "TO");
    escribir->nombre = c.LeerOperando(l);
    if (l.Toma("LENGTH"_c)) escribir->largo = c.LeerOperando(l);
    l.Fin();
    c.Emitir(std::move(escribir));
}

void LeerCierre(Compilador& c, Lectura& l, bool borrar) {
    auto cerrar = std::make_unique<CerrarArchivo>();
    cerrar->nombre = c.LeerOperando(l);
    cerrar->borrar = borrar;
    l.Fin();
    c.Emitir(std::move(cerrar));
}

}  // namespace

bool LeerDeArchivos(Compilador& c, Lectura& l) {
    const Clave sentencia = l.Primera().clave;
    if (sentencia == "TRANSFER"_c) return LeerTRANSFER(c, l), true;
    if (!l.Toma("DATASET"_c)) return false;
    switch (sentencia) {
        case "OPEN"_c: return LeerOPEN(c, l), true;
        case "READ"_c: return LeerREAD(c, l), true;
        case "CLOSE"_c: return LeerCierre(c, l, false), true;
        case "DELETE"_c: return LeerCierre(c, l, true), true;
        default: l.NoSePractica();
    }
}

}  // namespace qor::abap
