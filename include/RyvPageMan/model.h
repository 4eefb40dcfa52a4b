// The project model: a project's data, its drawings and subfolders, its settings, its file.
#pragma once

#include "model/drawing_settings.h"
#include "model/file_details.h"
#include "model/kqp_filer.h"
#include "model/project.h"
#include "model/project_data.h"
#include "model/subfolder.h"
