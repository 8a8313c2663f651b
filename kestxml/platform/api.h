// The one export macro: a name without it stays inside the library.
#pragma once

#define KESTXML_API __attribute__((visibility("default")))
