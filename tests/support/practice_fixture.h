#pragma once

#include <deque>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "abap/surroundings.h"
#include "abap/values/conversion.h"
#include "practice/events.h"

namespace qor::pruebas {

// Keeps what the practice system tells, a line an event.
class OyenteQueApunta : public OyenteDePractica {
public:
    std::vector<std::string> dichos;

    void Transaccion(const TransaccionProbada& t) override { Apuntar("call", t); }
    void AbreSesion(const SesionAbierta& s) override {
        dichos.push_back("open " + std::string(s.grupo) + " " + std::string(s.usuario) + " " + std::string(s.conservar));
    }
    void InsertaEnSesion(const TransaccionProbada& t) override { Apuntar("insert", t); }
    void CierraSesion(std::string_view grupo, std::size_t n) override {
        dichos.push_back("close " + std::string(grupo) + " " + std::to_string(n));
    }
    void Bapi(const LlamadaDeBapi& b) override {
        dichos.push_back(b.llamada.nombre + (b.fallo ? " failed: " : ": ") + std::string(b.mensajes[0].texto));
    }
    void Confirma() override { dichos.emplace_back("commit"); }
    void Deshace() override { dichos.emplace_back("rollback"); }
    void Inserta(const abap::Estructura&, std::span<const abap::ValorDeBase>) override {}
    void Actualiza(std::string_view, std::int64_t) override {}
    void Borra(std::string_view, std::int64_t) override {}
    void ArchivoSinLeer(std::string_view nombre, std::string_view motivo) override {
        dichos.push_back(std::string(nombre) + ": " + std::string(motivo));
    }
    void Aviso(std::string_view texto) override { dichos.emplace_back(texto); }

private:
    void Apuntar(const char* que, const TransaccionProbada& t) {
        const auto& mensaje = t.mensajes[0];
        std::string linea = std::string(que) + " " + std::string(t.transaccion) + " " + std::to_string(t.filas.size()) + " rows";
        for (const auto parte : {t.lugar.programa, t.lugar.dynpro, t.lugar.campo, t.lugar.valor}) {
            if (t.subrc != 0) linea += "|" + std::string(parte);
        }
        dichos.push_back(linea + ": " + mensaje.tipo + " " + std::string(mensaje.id) + " " + std::string(mensaje.numero) + " " +
                         std::string(mensaje.texto));
    }
};

class FalloFijo : public FallosPedidos {
public:
    std::optional<FalloPedido> pedido;
    const FalloPedido* Pedido() const override { return pedido ? &*pedido : nullptr; }
};

// A structure of C components, but for those with another type.
struct ComponenteDePrueba {
    const char* nombre;
    std::uint32_t largo;
    abap::Tipo tipo = abap::Tipo::C;
};
inline abap::Estructura HacerEstructura(const char* nombre, std::initializer_list<ComponenteDePrueba> componentes) {
    abap::Estructura estructura;
    estructura.nombre = nombre;
    for (const auto& c : componentes) estructura.Agregar(c.nombre, {c.tipo, c.largo, 0, nullptr});
    estructura.Cerrar();
    return estructura;
}
inline abap::TablaInterna HacerTabla(const abap::Estructura& estructura) {
    return abap::TablaInterna({abap::Tipo::Estructura, estructura.largo, 0, &estructura});
}
inline std::vector<std::string> FilasDe(const abap::TablaInterna& tabla) {
    std::vector<std::string> filas;
    for (std::size_t i = 0; i < tabla.Filas(); ++i) filas.emplace_back(tabla.CampoDeFila(i).Texto());
    return filas;
}
inline void AgregarFila(abap::TablaInterna& tabla, std::initializer_list<std::string_view> valores) {
    std::uint8_t* const fila = tabla.Agregar();
    const auto& estructura = *tabla.Linea().estructura;
    abap::PonerInicial(tabla.CampoDeFila(tabla.Filas() - 1), &estructura);
    std::size_t i = 0;
    for (const auto valor : valores) abap::PonerTexto(valor, abap::CampoDeComponente(estructura.componentes[i++], fila));
}

// A call of a function module whose fields it keeps.
class LlamadaDePrueba {
public:
    explicit LlamadaDePrueba(const char* nombre) { llamada.nombre = nombre; }

    abap::LlamadaAFuncion llamada;

    LlamadaDePrueba& Exporta(const char* nombre, std::string_view valor) {
        llamada.exporta.push_back({nombre, Guardar(std::string(valor)), nullptr, nullptr});
        return *this;
    }
    LlamadaDePrueba& Importa(const char* nombre, std::string valor, const abap::Estructura* estructura = nullptr) {
        auto campo = Guardar(std::move(valor));
        if (estructura) campo.tipo = abap::Tipo::Estructura;
        llamada.importa.push_back({nombre, campo, estructura, nullptr});
        return *this;
    }
    LlamadaDePrueba& ConTabla(const char* nombre, abap::TablaInterna& tabla) {
        llamada.tablas.push_back({nombre, {}, tabla.Linea().estructura, &tabla});
        return *this;
    }
    std::string_view Valor(const char* nombre) const {
        for (const auto& parametro : llamada.importa) {
            if (parametro.nombre == nombre) return parametro.campo.Texto();
        }
        return "no parameter";
    }

private:
    abap::Campo Guardar(std::string valor) {
        auto campo = abap::CampoDe(valores_.emplace_back(std::move(valor)));
        campo.soloLectura = false;
        return campo;
    }

    std::deque<std::string> valores_;
};

}  // namespace qor::pruebas
