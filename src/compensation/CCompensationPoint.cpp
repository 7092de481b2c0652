#include "CCompensationPoint.h"

CCompensationPoint::~CCompensationPoint() = default;
