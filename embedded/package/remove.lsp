;; Removing drawings from a project; the files themselves stay.

;; Asks which drawings to remove; T, or nil when the user cancels, chooses none, or the file cannot be
;; written.
(defun c:ryv_proj_multiple_remove (mode path / content entries names answers)
  (if (setq content (project-read path))
    (progn
      (setq entries (ryp-entries path content)
            names (mapcar '(lambda (drawing) (ryp-shown-name drawing path)) (ryp-drawings entries))
            answers (ryp-ask "remove_drawings" "remove"
              (list (ryp-list "drawings" "remove-drawings" names)))
            names (mapcar 'strcase (ryp-answer answers "drawings")))
      (if names
        (ryp-write-entries path
          (ryp-keep-subfolders entries
            (vl-remove-if
              '(lambda (entry)
                 (and (ryp-field entry 'path) (member (strcase (ryp-shown-name entry path)) names)))
              entries)))))))

;; A drawing as the user sees it: its path in the project's folder.
(defun ryp-shown-name (drawing path)
  (ryp-slashes
    (cond ((path-relative (path-folder path) (ryp-field drawing 'path))) ((ryp-field drawing 'path)))))

;; The entries that are left, with a mark for each subfolder that lost its last drawing, so that it stays.
(defun ryp-keep-subfolders (before left / held)
  (setq held (mapcar '(lambda (entry) (cond ((ryp-field entry 'trace)) ((ryp-field entry 'empty)))) left))
  (foreach entry before
    (if (and (ryp-field entry 'trace) (/= (ryp-field entry 'trace) "")
             (not (member (ryp-field entry 'trace) held)))
      (setq held (cons (ryp-field entry 'trace) held)
            left (append left (list (ryp-marker-of-empty (ryp-field entry 'trace)))))))
  left)

(defun ryp-marker-of-empty (trace)
  (ryp-empty-entry (strcat "=====SUB=" trace "[Empty]")))
