#pragma once

#include <QLatin1String>

/// The names of every XML tag and attribute, and the keyword texts, of the tool chain's files.
namespace NLumoXmlTags {

// Root tags; those of value files name the file type.
constexpr QLatin1String TAG_ROOT_XML_SETTINGS("C_SETTINGS_FORMAT");
constexpr QLatin1String TAG_ROOT_C_COMPENSATION("C_COMPENSATION_FORMAT");
constexpr QLatin1String TAG_ROOT_PARAMETERS("LumoParameters");
constexpr QLatin1String TAG_ROOT_CONF_PARAM("LumoConfigParams");
constexpr QLatin1String TAG_ROOT_DEVICE_DB("LumoDeviceDatabase");
constexpr QLatin1String TAG_ROOT_PLUGIN_PARAM("LumoPluginParameters");
constexpr QLatin1String TAG_ROOT_FIRMWARE_DB("LumoFirmwareDataBase");
constexpr QLatin1String TAG_ROOT_LOGIC_DB("LumoLogicDataBase");
constexpr QLatin1String TAG_ROOT_OEM_PARAMETERS("LumoOemParameters");
constexpr QLatin1String TAG_ROOT_MOTOR_PARAMETERS("LumoMotorParameters");
constexpr QLatin1String TAG_ROOT_TYPEPLATE_DATA("LumoTypePlateData");
constexpr QLatin1String TAG_ROOT_OPTION_MODUL_DB("LumoOptionModulDatabase");
constexpr QLatin1String TAG_ROOT_PARAM_DEFINITION("LumoParamDefinition");

// Version attribute of the root: definition and value files write it small, the others do not.
constexpr QLatin1String ATTR_VERSION("version");
constexpr QLatin1String ATTR_VERSION_CAPITAL("Version");

// Head meta data.
constexpr QLatin1String TAG_HEAD("Head");
constexpr QLatin1String TAG_DATE("Date");
constexpr QLatin1String TAG_AUTHOR("Author");
constexpr QLatin1String TAG_COMMENT("Comment");

// Definition and value files.
constexpr QLatin1String TAG_DATA("Data");
constexpr QLatin1String TAG_PARAM("Param");
constexpr QLatin1String TAG_NAME("Name");
constexpr QLatin1String TAG_TYPE("Type");
constexpr QLatin1String ATTR_ID("id");

// Definition files.
constexpr QLatin1String TAG_UNIT("Unit");
constexpr QLatin1String TAG_HINT("Hint");
constexpr QLatin1String TAG_DEF_VAL("DefVal");
constexpr QLatin1String TAG_MIN_VAL("MinVal");
constexpr QLatin1String TAG_MAX_VAL("MaxVal");
constexpr QLatin1String TAG_MIN_OBJ("MinObj");
constexpr QLatin1String TAG_MAX_OBJ("MaxObj");
constexpr QLatin1String TAG_ENUM("Enum");
constexpr QLatin1String TAG_RADIO("Radio");
constexpr QLatin1String TAG_ITEM("Item");
constexpr QLatin1String TAG_CHECK("Check");
constexpr QLatin1String TAG_CHECKED("Checked");
constexpr QLatin1String TAG_UNCHECKED("Unchecked");
constexpr QLatin1String TAG_UNDEFINED("Undefined");
constexpr QLatin1String TAG_BIT_SET("BitSet");
constexpr QLatin1String TAG_BIT("Bit");
constexpr QLatin1String TAG_VISIBLE_VALUES("VisibleValues");
constexpr QLatin1String ATTR_EDIT("edit");
constexpr QLatin1String ATTR_VALUE("value");
constexpr QLatin1String ATTR_POS("pos");
constexpr QLatin1String ATTR_INVERT("invert");
constexpr QLatin1String ATTR_REF_ID("refId");
constexpr QLatin1String VAL_TRUE("true");
constexpr QLatin1String VAL_FALSE("false");

// Value files.
constexpr QLatin1String TAG_SUB_DEVICE("SubDevice");
constexpr QLatin1String TAG_GROUP("Group");
constexpr QLatin1String TAG_VALUE("Value");
constexpr QLatin1String ATTR_HARDWARE_ID("hardwareId");

// Settings files. The names of the types, and how a boolean value is written.
constexpr QLatin1String ATTR_TYPE("Type");
constexpr QLatin1String ATTR_UNIT("unit");
constexpr QLatin1String ATTR_COMMENT("comment");
constexpr QLatin1String VAL_TYPE_UINT8("UINT8");
constexpr QLatin1String VAL_TYPE_UINT16("UINT16");
constexpr QLatin1String VAL_TYPE_UINT32("UINT32");
constexpr QLatin1String VAL_TYPE_UINT64("UINT64");
constexpr QLatin1String VAL_TYPE_INT8("INT8");
constexpr QLatin1String VAL_TYPE_INT16("INT16");
constexpr QLatin1String VAL_TYPE_INT32("INT32");
constexpr QLatin1String VAL_TYPE_INT64("INT64");
constexpr QLatin1String VAL_TYPE_REAL64("REAL64");
constexpr QLatin1String VAL_TYPE_STRING("STRING");
constexpr QLatin1String VAL_TYPE_BOOLEAN("BOOLEAN");
constexpr QLatin1String VAL_SETTINGS_TRUE("TRUE");
constexpr QLatin1String VAL_SETTINGS_FALSE("FALSE");

// Compensation files. A point holds its adjustment in "ADJUST", in old files in "ERROR".
constexpr QLatin1String TAG_HEADER("HEADER");
constexpr QLatin1String TAG_MIN("MIN");
constexpr QLatin1String TAG_MAX("MAX");
constexpr QLatin1String TAG_POINTLIST("POINTLIST");
constexpr QLatin1String TAG_POINT("POINT");
constexpr QLatin1String TAG_POSITION("POSITION");
constexpr QLatin1String TAG_ADJUST("ADJUST");
constexpr QLatin1String TAG_ERROR("ERROR");

}  // namespace NLumoXmlTags
