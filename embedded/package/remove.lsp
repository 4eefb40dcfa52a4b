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
;; Attributes at the end stay at the end.
(defun ryp-keep-subfolders (before left / held markers)
  (setq held (mapcar '(lambda (entry) (cond ((ryp-field entry 'trace)) ((ryp-field entry 'empty)))) left))
  (foreach entry before
    (if (and (ryp-field entry 'trace) (/= (ryp-field entry 'trace) "")
             (not (member (ryp-field entry 'trace) held)))
      (setq held (cons (ryp-field entry 'trace) held)
            markers (cons (ryp-marker-of-empty (ryp-field entry 'trace)) markers))))
  (append
    (vl-remove-if 'ryp-belongs-to-nothing left)
    (reverse markers)
    (vl-remove-if-not 'ryp-belongs-to-nothing left)))

(defun ryp-belongs-to-nothing (entry)
  (not (or (assoc 'path entry) (assoc 'empty entry))))

(defun ryp-marker-of-empty (trace)
  (ryp-empty-entry (strcat "=====SUB=" trace "[Empty]")))
