#include "platform/qt/text.h"
