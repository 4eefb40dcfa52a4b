;; Loads the package into a document's LISP: all files beside this one, in the order of the list, which
;; begins with what the others build on. The host loads this file for each new document.

(setq RYP_FOLDER (path-folder (findfile "package.lsp")))

(foreach name
    '("text" "tables" "environment" "messages" "forms" "variables" "substitution"
      "project_file" "projects" "recent_projects" "selection" "drawings"
      "title_mapping" "title_values" "title_block"
      "drawing_list" "archive" "sort" "remove" "descriptions" "sections"
      "references" "ladder_forms" "wire_forms" "ladders" "layers" "blocks" "locations"
      "terminals" "locks" "documents" "requests" "pending" "expose")
    (load (path-combine RYP_FOLDER (strcat name ".lsp"))))

(princ)
