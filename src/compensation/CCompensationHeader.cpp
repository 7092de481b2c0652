#include "CCompensationHeader.h"

CCompensationHeader::~CCompensationHeader() = default;
