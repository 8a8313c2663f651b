// Everything that the library offers.
#pragma once

#include "kestxml/binding/serialization_context.h"
#include "kestxml/binding/serialization_limits.h"
#include "kestxml/document/output_form.h"
#include "kestxml/values/compression_type.h"
#include "kestxml/values/critical_section.h"
#include "kestxml/values/format_string.h"
#include "kestxml/values/instance_monitor.h"
#include "kestxml/values/item_type.h"
#include "kestxml/values/kest_exception.h"
#include "kestxml/values/preserve_character_ref_cr.h"
#include "kestxml/values/smart_ptr.h"
#include "kestxml/values/unicode.h"
#include "kestxml/values/whitespace_utils.h"
