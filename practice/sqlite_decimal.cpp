#include "practice/sqlite_decimal.h"

#include <sqlite3.h>

#include <algorithm>
#include <string>

namespace qor {

namespace {

__extension__ using Entero128 = __int128;
__extension__ using Natural128 = unsigned __int128;

struct Decimal {
    Entero128 digitos = 0;
    int escala = 0;
};

constexpr int maximoDeCifras = 37;

Decimal LeerDecimal(std::string_view texto) {
    Decimal valor;
    bool negativo = false;
    bool conPunto = false;
    int cifras = 0;
    for (const char c : texto) {
        if (c == '-') negativo = true;
        if (c == '.') conPunto = true;
        if (c < '0' || c > '9' || cifras == maximoDeCifras) continue;
        valor.digitos = valor.digitos * 10 + (c - '0');
        if (valor.digitos != 0) ++cifras;
        if (conPunto) ++valor.escala;
    }
    if (negativo) valor.digitos = -valor.digitos;
    return valor;
}

void Igualar(Decimal& uno, Decimal& otro) {
    auto& corto = uno.escala < otro.escala ? uno : otro;
    const int escala = std::max(uno.escala, otro.escala);
    constexpr auto limite = static_cast<Entero128>(1'000'000'000'000'000'000) * 1'000'000'000'000'000'000;
    for (; corto.escala < escala && corto.digitos < limite && corto.digitos > -limite; ++corto.escala) corto.digitos *= 10;
}

std::string EscribirDecimal(const Decimal& valor) {
    const bool negativo = valor.digitos < 0;
    auto resto = static_cast<Natural128>(negativo ? -valor.digitos : valor.digitos);
    std::string alReves;
    for (int i = 0; resto != 0 || i <= valor.escala; ++i) {
        if (i == valor.escala && i > 0) alReves += '.';
        alReves += static_cast<char>('0' + static_cast<int>(resto % 10));
        resto /= 10;
    }
    if (negativo) alReves += '-';
    return {alReves.rbegin(), alReves.rend()};
}

std::string_view TextoDe(sqlite3_value* valor) {
    const auto* const datos = reinterpret_cast<const char*>(sqlite3_value_text(valor));
    return datos == nullptr ? std::string_view{} : std::string_view(datos, static_cast<std::size_t>(sqlite3_value_bytes(valor)));
}

void Responder(sqlite3_context* contexto, const Decimal& valor) {
    const std::string texto = EscribirDecimal(valor);
    sqlite3_result_text(contexto, texto.data(), static_cast<int>(texto.size()), SQLITE_TRANSIENT);
}

Decimal Sumar(Decimal uno, Decimal otro) {
    Igualar(uno, otro);
    return {uno.digitos + otro.digitos, uno.escala};
}

int Ordenar(void* /*nada*/, int largoUno, const void* uno, int largoOtro, const void* otro) {
    return CompararDecimales({static_cast<const char*>(uno), static_cast<std::size_t>(largoUno)},
                             {static_cast<const char*>(otro), static_cast<std::size_t>(largoOtro)});
}

void Mas(sqlite3_context* contexto, int /*cuantos*/, sqlite3_value** valores) {
    Responder(contexto, Sumar(LeerDecimal(TextoDe(valores[0])), LeerDecimal(TextoDe(valores[1]))));
}

void Menos(sqlite3_context* contexto, int /*cuantos*/, sqlite3_value** valores) {
    Decimal otro = LeerDecimal(TextoDe(valores[1]));
    otro.digitos = -otro.digitos;
    Responder(contexto, Sumar(LeerDecimal(TextoDe(valores[0])), otro));
}

struct Suma {
    bool hay = false;
    Decimal valor;
};

// The memory that SQLite gives is zeroed, which is a sum of nothing; it need not be aligned to 16 bytes.
Suma Leer(const void* lugar) {
    Suma suma;
    std::copy_n(static_cast<const char*>(lugar), sizeof suma, reinterpret_cast<char*>(&suma));
    return suma;
}

void SumaPaso(sqlite3_context* contexto, int /*cuantos*/, sqlite3_value** valores) {
    void* const lugar = sqlite3_aggregate_context(contexto, sizeof(Suma));
    if (lugar == nullptr) return sqlite3_result_error_nomem(contexto);
    Suma suma = Leer(lugar);
    suma.valor = Sumar(suma.valor, LeerDecimal(TextoDe(valores[0])));
    suma.hay = true;
    std::copy_n(reinterpret_cast<const char*>(&suma), sizeof suma, static_cast<char*>(lugar));
}

void SumaFin(sqlite3_context* contexto) {
    const void* const lugar = sqlite3_aggregate_context(contexto, 0);
    if (lugar == nullptr) return sqlite3_result_null(contexto);
    Responder(contexto, Leer(lugar).valor);
}

}  // namespace

int CompararDecimales(std::string_view uno, std::string_view otro) {
    Decimal a = LeerDecimal(uno);
    Decimal b = LeerDecimal(otro);
    Igualar(a, b);
    if (a.digitos == b.digitos) return 0;
    return a.digitos < b.digitos ? -1 : 1;
}

void AgregarDecimales(sqlite3* mango) {
    constexpr int clase = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    sqlite3_create_collation(mango, "QOR_DECIMAL", SQLITE_UTF8, nullptr, Ordenar);
    sqlite3_create_function(mango, "QOR_ADD", 2, clase, nullptr, Mas, nullptr, nullptr);
    sqlite3_create_function(mango, "QOR_SUBTRACT", 2, clase, nullptr, Menos, nullptr, nullptr);
    sqlite3_create_function(mango, "QOR_SUM", 1, clase, nullptr, nullptr, SumaPaso, SumaFin);
}

}  // namespace qor
