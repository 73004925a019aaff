#pragma once

namespace kestrin {}
