;; Installation and location values that are in use, from the settings of drawings. Those of a project are
;; collected once and kept for all documents, until its drawings change.

(defun kq_ped_get_mg_on_dwg (mode kind)
  (ryp-values-on-drawing (ryp-code-setting kind)))

(defun c:kq_get_locs_on_dwg (mode)
  (ryp-values-on-drawing "IEC_LOC"))

(defun kq_loc_get_locs_or_inst_for_proj (kind unused)
  (ryp-values-of-project (ryp-code-setting kind)))

(defun c:kq_get_locs_for_proj (unused)
  (ryp-values-of-project "IEC_LOC"))

(defun ryp-code-setting (kind)
  (if (= kind "INST") "IEC_INST" "IEC_LOC"))

(defun ryp-values-on-drawing (name)
  (ryp-distinct (list (ryp-setting (ryp-with-current-drawing 'ryp-settings) name))))

;; The values of the active project's drawings, sorted. The list that is kept begins with a text, so that
;; it is not taken for a missing one when no drawing has a value.
(defun ryp-values-of-project (name / kept)
  (cond
    ((setq kept (bb-get (strcat "ryp-values-" name))) (cdr kept))
    ((ryp-active-project)
      (setq kept (ryp-collect-values name))
      (bb-set (strcat "ryp-values-" name) (cons name kept))
      kept)))

(defun ryp-collect-values (name / project)
  (if (setq project (ryp-project))
    (ryp-sorted
      (ryp-distinct
        (mapcar
          '(lambda (drawing) (ryp-setting (ryp-settings-of-file (ryp-field drawing 'path)) name))
          (ryp-project-drawings project)))
      'ryp-sort-key)))

(defun ryp-forget-locations ()
  (bb-set "ryp-values-IEC_INST" nil)
  (bb-set "ryp-values-IEC_LOC" nil))
