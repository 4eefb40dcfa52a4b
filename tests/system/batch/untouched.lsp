;; The title blocks of the sample project are up to date as they are.
(ryv_makeproj_active "pump-station/Pump Station.kqp")
(prin1 (c:kq_tb))
(terpri)
