// DESCRIBE TABLE and DESCRIBE FIELD.
#include "abap/compile/table_statements.h"
#include "abap/values/conversion.h"
#include "abap/values/output_format.h"

namespace qor::abap {

namespace {

class DescritaTabla : public Instruccion {
public:
    OperandoDeTabla tabla;
    std::optional<Operando> filas;
    std::optional<Operando> ocurre;

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        const auto& suya = maquina.Tabla(tabla);
        const auto cuantas = static_cast<std::int64_t>(suya.Filas());
        maquina.PonerSY("TFILL", cuantas);
        maquina.PonerSY("TLENG", static_cast<std::int64_t>(suya.Linea().largo));
        maquina.PonerSY("TOCCU", static_cast<std::int64_t>(tabla.ocurre));
        if (filas) PonerEntero(cuantas, maquina.Destino(*filas));
        if (ocurre) PonerEntero(tabla.ocurre, maquina.Destino(*ocurre));
        return siguiente;
    }
};

char LetraDe(const Campo& campo, bool conComponentes) {
    switch (campo.tipo) {
        case Tipo::C: return 'C';
        case Tipo::N: return 'N';
        case Tipo::D: return 'D';
        case Tipo::T: return 'T';
        case Tipo::I: return 'I';
        case Tipo::P: return 'P';
        case Tipo::F: return 'F';
        case Tipo::X: return 'X';
        case Tipo::Cadena: return 'g';
        case Tipo::Estructura: break;
    }
    return conComponentes ? 'u' : 'C';
}

class DescritoCampo : public Instruccion {
public:
    Operando campo;
    std::optional<Operando> largo;
    std::optional<Operando> tipo;
    std::optional<Operando> componentes;
    std::optional<Operando> decimales;
    std::optional<Operando> ancho;

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        constexpr std::int64_t largoDeCadena = 8;  // what a STRING takes within a structure
        const Campo suyo = maquina.Resolver(campo);
        const auto poner = [&](const std::optional<Operando>& destino, std::int64_t valor) {
            if (destino) PonerEntero(valor, maquina.Destino(*destino));
        };
        poner(largo, suyo.tipo == Tipo::Cadena ? largoDeCadena : suyo.largo);
        poner(decimales, suyo.tipo == Tipo::P ? suyo.decimales : 0);
        poner(ancho, suyo.tipo == Tipo::Cadena ? 0 : AnchoDeSalida(suyo));
        if (componentes) {
            const auto* estructura = maquina.EstructuraDe(campo);
            const bool conEllos = suyo.tipo == Tipo::Estructura && estructura != nullptr;
            poner(componentes, conEllos ? static_cast<std::int64_t>(estructura->componentes.size()) : 0);
        }
        if (tipo) PonerTexto(std::string(1, LetraDe(suyo, componentes.has_value())), maquina.Destino(*tipo));
        return siguiente;
    }
};

}  // namespace

void CompilarDESCRIBE(Compilador& c, Lectura& l) {
    if (l.Toma("TABLE"_c)) {
        auto descrita = std::make_unique<DescritaTabla>();
        descrita->tabla = c.LeerTabla(l);
        while (l.Hay()) {
            if (l.Toma("LINES"_c)) {
                descrita->filas = c.LeerDestino(l);
            } else if (l.Toma("OCCURS"_c)) {
                descrita->ocurre = c.LeerDestino(l);
            } else {
                l.NoSePractica();
            }
        }
        c.Emitir(std::unique_ptr<Instruccion>(std::move(descrita)));
        return;
    }
    if (!l.Toma("FIELD"_c)) l.NoSePractica();
    auto descrito = std::make_unique<DescritoCampo>();
    descrito->campo = c.LeerOperando(l);
    while (l.Hay()) {
        if (l.Toma("LENGTH"_c)) {
            descrito->largo = c.LeerDestino(l);
        } else if (l.Toma("TYPE"_c)) {
            descrito->tipo = c.LeerDestino(l);
        } else if (l.Toma("COMPONENTS"_c)) {
            descrito->componentes = c.LeerDestino(l);
        } else if (l.Toma("DECIMALS"_c)) {
            descrito->decimales = c.LeerDestino(l);
        } else if (l.Toma("OUTPUT-LENGTH"_c)) {
            descrito->ancho = c.LeerDestino(l);
        } else {
            l.NoSePractica();
        }
    }
    c.Emitir(std::unique_ptr<Instruccion>(std::move(descrito)));
}

}  // namespace qor::abap
