;; The project's description lines.

;; Lets the user edit description lines. With a number in front it edits the active project's and writes
;; them to its file, also when none is left; with (nil TEXT LINES) it edits the given lines under the text
;; and writes nothing. The lines as edited, without empty ones at the end; one empty line when no other is left,
;; and nil when the user cancels or the file cannot be written.
(defun c:ryv_proj_edit_proj_description_lines (mode text lines / project edited)
  (cond
    ((null mode) (ryp-left-lines (ryp-edit-lines text lines)))
    ((null (setq project (ryp-project))) nil)
    ((setq edited (ryp-edit-lines (ryp-project-name (car project)) (ryp-part (cdr project) "descriptions")))
      (if (ryp-write-part (car project) (cons "descriptions" (ryp-without-empty-end edited)))
        (ryp-left-lines edited)))))

;; What is left of edited lines; nil is no answer and stays so.
(defun ryp-left-lines (edited)
  (if edited
    (cond ((ryp-without-empty-end edited)) ('("")))))

;; Shows the lines, twelve or as many as there are; all as edited, or nil when the user cancels.
(defun ryp-edit-lines (text lines)
  (ryp-ask-texts "description_lines" (ryp-message "descriptions" (list text)) "description-line"
    (ryp-take lines (max 12 (length lines)))))
