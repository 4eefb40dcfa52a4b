;; Writing title blocks.

;; Updates the title blocks of the selected drawings, or of all drawings of the project; T when all are up to
;; date, so not when one of those selected is none of the project's.
(defun c:kq_tb (/ selected project mapping)
  (setq selected (ryp-take-selection))
  (if (and (setq project (ryp-project))
           (setq mapping (ryp-mapping-of-project (car project))))
    (ryp-update-titles selected project mapping)))

(defun ryp-update-titles (selected project mapping / drawings wanted done)
  (setq drawings (ryp-project-drawings project)
        wanted (length (cond (selected) (drawings)))
        done 0)
  (foreach drawing (ryp-chosen-drawings selected drawings)
    (if (ryp-update-file drawing (cdr project) (length drawings) mapping)
      (setq done (1+ done))))
  (ryp-tell "titles-done" (list (itoa done) (itoa wanted)))
  (= done wanted))

;; Updates the title block of one drawing's file; T, or nil with the reason printed.
(defun ryp-update-file (drawing content count mapping)
  (ryp-with-drawing (ryp-field drawing 'path)
    '(lambda (handle / changed)
       (if (setq changed (ryp-update-drawing handle drawing content count mapping))
         (or (= changed 0) (dwg-save handle))))))

;; Updates the title block of the current document's drawing, without asking and without saving; T, or nil
;; with the reason printed.
(defun c:ryv_tb_nodlg (/ project mapping drawings)
  (if (and (setq project (ryp-project))
           (setq mapping (ryp-mapping-of-project (car project))))
    (progn
      (setq drawings (ryp-project-drawings project))
      (ryp-with-current-drawing
        '(lambda (handle / drawing)
           (if (setq drawing (ryp-drawing-of-path (dwg-file handle) drawings))
             (if (ryp-update-drawing handle drawing (cdr project) (length drawings) mapping) T)
             (ryp-tell "not-in-project" (list (ryp-shown-path (doc-name))))))))))

;; Writes the values into a drawing; how many attributes changed, or nil, with the reason printed, when it has
;; no settings, without which numbers and codes would be lost, or no block of the mapping.
(defun ryp-update-drawing (handle drawing content count mapping / name settings changed)
  (setq name (path-name (ryp-field drawing 'path))
        settings (ryp-settings handle))
  (cond
    ((null settings) (ryp-tell "title-no-settings" (list name)))
    ((setq changed (ryp-write-titles handle mapping (ryp-title-source content count drawing settings)))
      (ryp-tell "title-changed" (list name (itoa changed)))
      changed)
    (T (ryp-tell "title-missing" (list name)))))

;; Writes all title blocks of a drawing; how many attributes changed, or nil when it has no title block.
(defun ryp-write-titles (handle mapping source / blocks changed)
  (setq blocks 0
        changed 0)
  (foreach title mapping
    (setq blocks
      (+ blocks
        (ryp-each-reference handle (car title)
          '(lambda (handle)
             (setq changed (+ changed (ryp-write-title handle (cdr title) source)))
             T)))))
  (if (> blocks 0) changed))

;; Writes the attributes of the open title block; how many changed. What a template says nothing about keeps
;; its text, which somebody may have written by hand.
(defun ryp-write-title (handle templates source / changed value)
  (setq changed 0)
  (foreach template templates
    (setq value (ryp-fill-template (cdr template) source))
    (if (and value (ryp-change-attribute handle (car template) value))
      (setq changed (1+ changed))))
  changed)
