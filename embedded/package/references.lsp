;; Cross-references: defaults and set-ups.

;; Defaults of the table of cross-references: which fields are shown, the names of all, and how they are
;; aligned.
(defun kq_xref_tbl_indexlst () "1,2,3,5")
(defun kq_xref_tbl_fldnams () "W1,T1,TYPE,T2,W2,REF,SH,SHDWGNAM,FILENAME,FULLFILENAM")
(defun kq_xref_tbl_jstlst () "MC,MC,MC,MC,MC,MC,MC,MC,L,L")

;; The set-ups show the given values, each with a label that tells what it is for, and give as many back;
;; nil when the user cancels.
(defun c:kq_xref_setup_graphical (values)
  (ryp-ask-texts "xref_graphical" "references-graphical"
    '("graphic" "graphic-style" "contact-map" "references-sort" "references-flags" "references-fill"
      "unused-style")
    values))

(defun c:kq_xref_setup_table (values)
  (ryp-ask-texts "xref_table" "references-table"
    '("table-style" "table-title" "table-shown" "table-fields" "table-alignment" "contact-map"
      "references-sort" "references-flags" "references-fill" "unused-style" "format-same" "format-other")
    values))

(defun c:kq_xref_setup_text (values)
  (ryp-ask-texts "xref_text" "references-text"
    '("text-between" "references-sort" "references-flags" "references-fill" "unused-style")
    values))
