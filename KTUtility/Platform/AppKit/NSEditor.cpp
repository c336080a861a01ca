#include "NSEditor.h"

NSEditor::~NSEditor() = default;
