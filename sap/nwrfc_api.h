#pragma once

#include <cstddef>

// The part of SAP's NetWeaver RFC library that the program uses, declared after the library's public documentation. The library is
// SAP's own, is not distributed with the program, and is loaded at run time. Its texts are UTF-16; a length counts characters and
// leaves out the zero behind them. Every function but the query of the version fills the error record that it is given.
namespace qor::nwrfc {

using SAP_UC = char16_t;

enum RFC_RC : int {
    RFC_OK = 0,
    RFC_COMMUNICATION_FAILURE = 1,
    RFC_LOGON_FAILURE = 2,
    RFC_ABAP_RUNTIME_FAILURE = 3,
    RFC_ABAP_MESSAGE = 4,
    RFC_ABAP_EXCEPTION = 5,
    RFC_CLOSED = 6,
    RFC_CANCELED = 7,
    RFC_TIMEOUT = 8,
    RFC_INVALID_HANDLE = 13,
    RFC_EXTERNAL_FAILURE = 15,
    RFC_INVALID_PARAMETER = 20,
    RFC_BUFFER_TOO_SMALL = 23
};

struct RFC_ERROR_INFO {
    RFC_RC code;
    int group;
    SAP_UC key[128];
    SAP_UC message[512];
    SAP_UC abapMsgClass[21];
    SAP_UC abapMsgType[2];
    SAP_UC abapMsgNumber[4];
    SAP_UC abapMsgV1[51];
    SAP_UC abapMsgV2[51];
    SAP_UC abapMsgV3[51];
    SAP_UC abapMsgV4[51];
    SAP_UC reserva[512];  // room for what later releases of the library may add
};
static_assert(offsetof(RFC_ERROR_INFO, key) == 8 && offsetof(RFC_ERROR_INFO, message) == 264);

// The record of a connection, as far as it is read: the system's name and the client.
struct RFC_ATTRIBUTES {
    SAP_UC dest[65];
    SAP_UC host[101];
    SAP_UC partnerHost[101];
    SAP_UC sysNumber[3];
    SAP_UC sysId[9];
    SAP_UC client[4];
    SAP_UC resto[1024];  // user, language, code pages, releases, addresses
};
static_assert(offsetof(RFC_ATTRIBUTES, sysId) == 540 && offsetof(RFC_ATTRIBUTES, client) == 558);

// A field of a structure or a line type, as far as it is read.
struct RFC_FIELD_DESC {
    SAP_UC name[31];
    int type;
    unsigned nucLength;
    unsigned nucOffset;
    unsigned ucLength;
    unsigned ucOffset;
    unsigned decimals;
    void* typeDescHandle;
    void* extendedDescription;
    unsigned char reserva[128];
};
static_assert(offsetof(RFC_FIELD_DESC, type) == 64);

struct RFC_CONNECTION_PARAMETER {
    const SAP_UC* name;
    const SAP_UC* value;
};

// Handles are pointers to records of the library's own. A function, a structure and a table are all containers of data.
struct Conexion;
struct DescripcionDeFuncion;
struct DescripcionDeTipo;
struct Contenedor;
using RFC_CONNECTION_HANDLE = Conexion*;
using RFC_FUNCTION_DESC_HANDLE = DescripcionDeFuncion*;
using RFC_TYPE_DESC_HANDLE = DescripcionDeTipo*;
using DATA_CONTAINER_HANDLE = Contenedor*;
using RFC_FUNCTION_HANDLE = Contenedor*;
using RFC_STRUCTURE_HANDLE = Contenedor*;
using RFC_TABLE_HANDLE = Contenedor*;

// A handle is null where the function fails.
using RfcGetVersion = const SAP_UC*(unsigned* major, unsigned* minor, unsigned* patch);
using RfcOpenConnection = RFC_CONNECTION_HANDLE(const RFC_CONNECTION_PARAMETER* parameters, unsigned count, RFC_ERROR_INFO* error);
using RfcCloseConnection = RFC_RC(RFC_CONNECTION_HANDLE connection, RFC_ERROR_INFO* error);
using RfcPing = RFC_RC(RFC_CONNECTION_HANDLE connection, RFC_ERROR_INFO* error);
using RfcCancel = RFC_RC(RFC_CONNECTION_HANDLE connection, RFC_ERROR_INFO* error);
using RfcGetConnectionAttributes = RFC_RC(RFC_CONNECTION_HANDLE connection, RFC_ATTRIBUTES* attributes, RFC_ERROR_INFO* error);
using RfcGetFunctionDesc = RFC_FUNCTION_DESC_HANDLE(RFC_CONNECTION_HANDLE connection, const SAP_UC* name, RFC_ERROR_INFO* error);
using RfcCreateFunction = RFC_FUNCTION_HANDLE(RFC_FUNCTION_DESC_HANDLE description, RFC_ERROR_INFO* error);
using RfcDestroyFunction = RFC_RC(RFC_FUNCTION_HANDLE function, RFC_ERROR_INFO* error);
using RfcInvoke = RFC_RC(RFC_CONNECTION_HANDLE connection, RFC_FUNCTION_HANDLE function, RFC_ERROR_INFO* error);
using RfcSetString = RFC_RC(DATA_CONTAINER_HANDLE container, const SAP_UC* name, const SAP_UC* value, unsigned length,
                            RFC_ERROR_INFO* error);
// RFC_BUFFER_TOO_SMALL, with the length that is needed, when the text and its zero don't fit into `size` characters.
using RfcGetString = RFC_RC(DATA_CONTAINER_HANDLE container, const SAP_UC* name, SAP_UC* buffer, unsigned size, unsigned* length,
                            RFC_ERROR_INFO* error);
using RfcGetTable = RFC_RC(DATA_CONTAINER_HANDLE container, const SAP_UC* name, RFC_TABLE_HANDLE* table, RFC_ERROR_INFO* error);
using RfcDeleteAllRows = RFC_RC(RFC_TABLE_HANDLE table, RFC_ERROR_INFO* error);
using RfcAppendNewRow = RFC_STRUCTURE_HANDLE(RFC_TABLE_HANDLE table, RFC_ERROR_INFO* error);
using RfcGetRowCount = RFC_RC(RFC_TABLE_HANDLE table, unsigned* count, RFC_ERROR_INFO* error);
// Rows and fields count from 0.
using RfcMoveTo = RFC_RC(RFC_TABLE_HANDLE table, unsigned row, RFC_ERROR_INFO* error);
using RfcGetCurrentRow = RFC_STRUCTURE_HANDLE(RFC_TABLE_HANDLE table, RFC_ERROR_INFO* error);
using RfcDescribeType = RFC_TYPE_DESC_HANDLE(DATA_CONTAINER_HANDLE container, RFC_ERROR_INFO* error);
using RfcGetFieldDescByIndex = RFC_RC(RFC_TYPE_DESC_HANDLE type, unsigned field, RFC_FIELD_DESC* description,
                                      RFC_ERROR_INFO* error);

}  // namespace qor::nwrfc
