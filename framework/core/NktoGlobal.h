#pragma once

/// Types that the whole tool chain shares.
namespace NktoGlobal {

/// The kinds of file, each named by the root tag of its files.
enum EParamFileType {
  FILE_TYPE_NONE = -1,  ///< no known type
  FILE_TYPE_XML_SETTINGS = 0,
  FILE_TYPE_COMPENSATION = 1,
  FILE_TYPE_PARAMETERS = 2,
  FILE_TYPE_CONFIG_PARAMS = 3,
  FILE_TYPE_DEVICE_DB = 4,
  FILE_TYPE_PLUGIN_PARAMS = 5,
  FILE_TYPE_FIRMWARE_DB = 6,
  FILE_TYPE_LOGIC_DB = 7,
  FILE_TYPE_OEM_PARAMETERS = 8,
  FILE_TYPE_MOTOR_PARAMETERS = 9,
  FILE_TYPE_TYPEPLATE_DATA = 10,
  FILE_TYPE_OPTION_MODUL_DB = 11
};

}  // namespace NktoGlobal
