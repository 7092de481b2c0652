#pragma once

#include <QLatin1String>

/// The names of every XML tag and attribute, and the keyword texts, of the tool chain's files.
namespace NLumoXmlTags {

/// A constant text; QLatin1String's own constructor does not count characters at compile time.
template <size_t N>
constexpr QLatin1String text(const char (&characters)[N]) {
  return QLatin1String(characters, static_cast<int>(N - 1));
}

// Root tags; those of value files name the file type.
constexpr QLatin1String TAG_ROOT_XML_SETTINGS = text("C_SETTINGS_FORMAT");
constexpr QLatin1String TAG_ROOT_C_COMPENSATION = text("C_COMPENSATION_FORMAT");
constexpr QLatin1String TAG_ROOT_PARAMETERS = text("LumoParameters");
constexpr QLatin1String TAG_ROOT_CONF_PARAM = text("LumoConfigParams");
constexpr QLatin1String TAG_ROOT_DEVICE_DB = text("LumoDeviceDatabase");
constexpr QLatin1String TAG_ROOT_PLUGIN_PARAM = text("LumoPluginParameters");
constexpr QLatin1String TAG_ROOT_FIRMWARE_DB = text("LumoFirmwareDataBase");
constexpr QLatin1String TAG_ROOT_LOGIC_DB = text("LumoLogicDataBase");
constexpr QLatin1String TAG_ROOT_OEM_PARAMETERS = text("LumoOemParameters");
constexpr QLatin1String TAG_ROOT_MOTOR_PARAMETERS = text("LumoMotorParameters");
constexpr QLatin1String TAG_ROOT_TYPEPLATE_DATA = text("LumoTypePlateData");
constexpr QLatin1String TAG_ROOT_OPTION_MODUL_DB = text("LumoOptionModulDatabase");
constexpr QLatin1String TAG_ROOT_PARAM_DEFINITION = text("LumoParamDefinition");

// Version attribute of the root: definition and value files write it small, the others do not.
constexpr QLatin1String ATTR_VERSION = text("version");
constexpr QLatin1String ATTR_VERSION_CAPITAL = text("Version");

// Head meta data.
constexpr QLatin1String TAG_HEAD = text("Head");
constexpr QLatin1String TAG_DATE = text("Date");
constexpr QLatin1String TAG_AUTHOR = text("Author");
constexpr QLatin1String TAG_COMMENT = text("Comment");

// Definition and value files.
constexpr QLatin1String TAG_DATA = text("Data");
constexpr QLatin1String TAG_PARAM = text("Param");
constexpr QLatin1String TAG_NAME = text("Name");
constexpr QLatin1String TAG_TYPE = text("Type");
constexpr QLatin1String ATTR_ID = text("id");

// Definition files.
constexpr QLatin1String TAG_UNIT = text("Unit");
constexpr QLatin1String TAG_HINT = text("Hint");
constexpr QLatin1String TAG_DEF_VAL = text("DefVal");
constexpr QLatin1String TAG_MIN_VAL = text("MinVal");
constexpr QLatin1String TAG_MAX_VAL = text("MaxVal");
constexpr QLatin1String TAG_MIN_OBJ = text("MinObj");
constexpr QLatin1String TAG_MAX_OBJ = text("MaxObj");
constexpr QLatin1String TAG_ENUM = text("Enum");
constexpr QLatin1String TAG_RADIO = text("Radio");
constexpr QLatin1String TAG_ITEM = text("Item");
constexpr QLatin1String TAG_CHECK = text("Check");
constexpr QLatin1String TAG_CHECKED = text("Checked");
constexpr QLatin1String TAG_UNCHECKED = text("Unchecked");
constexpr QLatin1String TAG_UNDEFINED = text("Undefined");
constexpr QLatin1String TAG_BIT_SET = text("BitSet");
constexpr QLatin1String TAG_BIT = text("Bit");
constexpr QLatin1String TAG_VISIBLE_VALUES = text("VisibleValues");
constexpr QLatin1String ATTR_EDIT = text("edit");
constexpr QLatin1String ATTR_VALUE = text("value");
constexpr QLatin1String ATTR_POS = text("pos");
constexpr QLatin1String ATTR_INVERT = text("invert");
constexpr QLatin1String ATTR_REF_ID = text("refId");
constexpr QLatin1String VAL_TRUE = text("true");
constexpr QLatin1String VAL_FALSE = text("false");

// Value files.
constexpr QLatin1String TAG_SUB_DEVICE = text("SubDevice");
constexpr QLatin1String TAG_GROUP = text("Group");
constexpr QLatin1String TAG_VALUE = text("Value");
constexpr QLatin1String ATTR_HARDWARE_ID = text("hardwareId");

// Settings files. The names of the types, and how a boolean value is written.
constexpr QLatin1String ATTR_TYPE = text("Type");
constexpr QLatin1String ATTR_UNIT = text("unit");
constexpr QLatin1String ATTR_COMMENT = text("comment");
constexpr QLatin1String VAL_TYPE_UINT8 = text("UINT8");
constexpr QLatin1String VAL_TYPE_UINT16 = text("UINT16");
constexpr QLatin1String VAL_TYPE_UINT32 = text("UINT32");
constexpr QLatin1String VAL_TYPE_UINT64 = text("UINT64");
constexpr QLatin1String VAL_TYPE_INT8 = text("INT8");
constexpr QLatin1String VAL_TYPE_INT16 = text("INT16");
constexpr QLatin1String VAL_TYPE_INT32 = text("INT32");
constexpr QLatin1String VAL_TYPE_INT64 = text("INT64");
constexpr QLatin1String VAL_TYPE_REAL64 = text("REAL64");
constexpr QLatin1String VAL_TYPE_STRING = text("STRING");
constexpr QLatin1String VAL_TYPE_BOOLEAN = text("BOOLEAN");
constexpr QLatin1String VAL_SETTINGS_TRUE = text("TRUE");
constexpr QLatin1String VAL_SETTINGS_FALSE = text("FALSE");

// Compensation files. A point holds its adjustment in "ADJUST", in old files in "ERROR".
constexpr QLatin1String TAG_HEADER = text("HEADER");
constexpr QLatin1String TAG_MIN = text("MIN");
constexpr QLatin1String TAG_MAX = text("MAX");
constexpr QLatin1String TAG_POINTLIST = text("POINTLIST");
constexpr QLatin1String TAG_POINT = text("POINT");
constexpr QLatin1String TAG_POSITION = text("POSITION");
constexpr QLatin1String TAG_ADJUST = text("ADJUST");
constexpr QLatin1String TAG_ERROR = text("ERROR");

// Migration tables.
constexpr QLatin1String TAG_ROOT_MIGRATION = text("Migration");
constexpr QLatin1String TAG_FROM = text("From");
constexpr QLatin1String TAG_TO = text("To");
constexpr QLatin1String TAG_PARAMETER = text("Parameter");
constexpr QLatin1String TAG_RESCALE = text("Rescale");
constexpr QLatin1String TAG_CHOICE = text("Choice");
constexpr QLatin1String TAG_MOVE = text("Move");
constexpr QLatin1String TAG_DROP = text("Drop");
constexpr QLatin1String TAG_ASK = text("Ask");
constexpr QLatin1String ATTR_RELEASE = text("release");
constexpr QLatin1String ATTR_PATH = text("path");
constexpr QLatin1String ATTR_NAME = text("name");
constexpr QLatin1String ATTR_NEW_NAME = text("newName");
constexpr QLatin1String ATTR_NEW_ID = text("newId");
constexpr QLatin1String ATTR_FACTOR = text("factor");
constexpr QLatin1String ATTR_OFFSET = text("offset");
constexpr QLatin1String ATTR_ROUNDING = text("rounding");
constexpr QLatin1String ATTR_FROM = text("from");
constexpr QLatin1String ATTR_TO = text("to");

}  // namespace NLumoXmlTags
